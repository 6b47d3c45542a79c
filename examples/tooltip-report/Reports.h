#pragma once

/// What the program tells of tooltips that it takes as they are.

#include "Files.h"

#include <ostream>

namespace tooltipreport {

/// The elements of a tooltip, its sheets and its filters.
void ShowAsText(std::ostream& out, const TooltipFile& tooltip);
void ShowAsJson(std::ostream& out, const TooltipFile& tooltip);

/// The sheets whose filters were deleted or modified.
void ShowChangesAsText(std::ostream& out, const TooltipFile& previous, const TooltipFile& current);
void ShowChangesAsJson(std::ostream& out, const TooltipFile& previous, const TooltipFile& current);

} // namespace tooltipreport
