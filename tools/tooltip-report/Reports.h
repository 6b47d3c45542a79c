#pragma once

/// The output of `show` and `changes`.

#include "Files.h"

#include <ostream>

namespace tooltipreport {

/// Writes the elements of a tooltip, its sheets and its filters.
void ShowAsText(std::ostream& out, const TooltipFile& tooltip);
void ShowAsJson(std::ostream& out, const TooltipFile& tooltip);

/// Writes the names of the sheets whose filters were deleted or modified.
void ShowChangesAsText(std::ostream& out, const TooltipFile& previous, const TooltipFile& current);
void ShowChangesAsJson(std::ostream& out, const TooltipFile& previous, const TooltipFile& current);

} // namespace tooltipreport
