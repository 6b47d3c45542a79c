#pragma once

/// What the program tells about tooltips. All results are UTF-8.

#include <corvaneplatform/TString.h>

#include <string>

namespace tooltipreport {

/// The elements of a tooltip, its sheets and its filters.
[[nodiscard]] std::string Show(const TString& tooltip);

/// The sheets whose filters were deleted or modified.
[[nodiscard]] std::string ShowChanges(const TString& previousTooltip, const TString& currentTooltip);

} // namespace tooltipreport
