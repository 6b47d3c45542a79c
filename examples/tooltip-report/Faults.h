#pragma once

/// What faults are called, and how they are told.

#include <corvanemarkup/MarkupFaults.h>

#include <string>

namespace tooltipreport {

/// What the output calls that kind: the name in the library in small letters with hyphens, such as
/// `missing-end`. It stays.
[[nodiscard]] std::string Identifier(corvanemarkup::VizInTooltip::MarkupFaultKind kind);

/// What is wrong, and what to do about it: one sentence.
[[nodiscard]] std::string Message(corvanemarkup::VizInTooltip::MarkupFaultKind kind);

} // namespace tooltipreport
