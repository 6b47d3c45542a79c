#include "Findings.h"

#include "TooltipText.h"

#include <corvanemarkup/MarkupRanges.h>

#include <algorithm>

namespace tooltipreport {

namespace VizInTooltip = corvanemarkup::VizInTooltip;

namespace {

constexpr char UnknownSheet[] = "unknown-sheet";

} // namespace

std::vector<Finding> FindAll(const TString& tooltip, const boost::optional<std::set<TString>>& sheets)
{
    std::vector<Finding> findings;
    for (const auto& diagnostic : VizInTooltip::FindDiagnostics(tooltip))
        findings.push_back({VizInTooltip::GetDiagnosticIdentifier(diagnostic.Kind), diagnostic.Severity,
                            diagnostic.Range,
                            ToUtf8(VizInTooltip::GetDiagnosticMessage(tooltip, diagnostic))});
    if (!sheets)
        return findings;

    const auto diagnosticCount = static_cast<std::ptrdiff_t>(findings.size());
    for (const auto& name : VizInTooltip::FindSheetAndFieldNames(tooltip))
        if (name.Kind == VizInTooltip::NameKind::Sheet &&
            name.Status == VizInTooltip::NameStatus::Reachable && sheets->count(name.Name) == 0)
            findings.push_back({UnknownSheet, VizInTooltip::DiagnosticSeverity::Error, name.Range,
                                Quoted(name.Name) +
                                    " is not in the list of sheets; correct the name, or list it with "
                                    "--sheet or --sheets"});
    const auto isBefore = [](const Finding& left, const Finding& right) {
        return left.Range.start < right.Range.start;
    };
    std::inplace_merge(findings.begin(), findings.begin() + diagnosticCount, findings.end(), isBefore);
    return findings;
}

std::vector<FindingKind> FindingKinds()
{
    std::vector<FindingKind> kinds;
    for (int value = 0; value < VizInTooltip::GetDiagnosticKindCount(); ++value) {
        const auto kind = static_cast<VizInTooltip::DiagnosticKind>(value);
        kinds.push_back(
            {VizInTooltip::GetDiagnosticIdentifier(kind), VizInTooltip::GetDiagnosticDescription(kind)});
    }
    kinds.push_back({UnknownSheet, "A sheet element names a sheet that is not in the list of sheets."});
    return kinds;
}

} // namespace tooltipreport
