#pragma once

/// What `check` finds in a tooltip.

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <set>
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

/// Returns the diagnostics of a tooltip in text order. If `sheets` is given, every other sheet is an error.
[[nodiscard]] std::vector<Finding> FindAll(const TString& tooltip,
                                           const boost::optional<std::set<TString>>& sheets);

struct FindingKind
{
    std::string Identifier;
    std::string Description;
};

/// Returns what can be found: the library's diagnostic kinds, in their order, and `unknown-sheet`.
[[nodiscard]] std::vector<FindingKind> FindingKinds();

} // namespace tooltipreport
