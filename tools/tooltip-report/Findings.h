#pragma once

/// What `check` finds in a tooltip.

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvaneplatform/TString.h>

#include <string>
#include <vector>

namespace tooltipreport {

struct Finding
{
    std::string Identifier;
    corvanemarkup::VizInTooltip::DiagnosticSeverity Severity;
    corvanemarkup::CorvaneCharRange Range;
    std::string Message;
};

/// Returns the diagnostics of a tooltip in text order.
[[nodiscard]] std::vector<Finding> FindAll(const TString& tooltip,
                                           const corvanemarkup::VizInTooltip::KnownNames& knownNames);

struct FindingKind
{
    std::string Identifier;
    std::string Description;
};

/// Returns the library's diagnostic kinds, in their order.
[[nodiscard]] std::vector<FindingKind> FindingKinds();

} // namespace tooltipreport
