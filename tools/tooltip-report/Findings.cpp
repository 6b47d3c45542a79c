#include "Findings.h"

#include "TooltipText.h"

namespace tooltipreport {

namespace VizInTooltip = corvanemarkup::VizInTooltip;

std::vector<Finding> FindAll(const TString& tooltip, const VizInTooltip::KnownNames& knownNames)
{
    std::vector<Finding> findings;
    for (const auto& diagnostic : VizInTooltip::FindDiagnostics(tooltip, knownNames))
        findings.push_back({VizInTooltip::GetDiagnosticIdentifier(diagnostic.Kind), diagnostic.Severity,
                            diagnostic.Range,
                            ToUtf8(VizInTooltip::GetDiagnosticMessage(tooltip, diagnostic, knownNames))});
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
    return kinds;
}

} // namespace tooltipreport
