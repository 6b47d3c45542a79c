#include "Names.h"

#include "TooltipText.h"

#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/SheetMarkupConstants.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>

namespace tooltipreport {

namespace VizInTooltip = corvanemarkup::VizInTooltip;
using corvanemarkup::MarkupText;
using corvanemarkup::VizInTooltipProperties;

void ForEachName(const TString& tooltip,
                 const std::function<void(NameKind, const TString&, corvanemarkup::CorvaneCharRange)>& visit)
{
    for (const VizInTooltip::ElementRanges& element : VizInTooltip::FindElementRanges(tooltip)) {
        if (element.End != VizInTooltip::ElementEnd::Bracket)
            continue;
        const TString content = Part(tooltip, element.Content);
        const auto sheet = VizInTooltipProperties::FromMarkupText(MarkupText(content));
        if (!sheet && !VizInTooltip::Impl::IsSheetMarkupText(content, 0))
            visit(NameKind::Field, content, element.Content);
        if (!sheet || !sheet->IsValid())
            continue;
        for (const auto& attribute : VizInTooltip::FindAttributeRanges(tooltip, element.Content)) {
            if (attribute.NameAndValue->Name == VizInTooltip::Impl::SheetMarkupAttributeNames::Name)
                visit(NameKind::Sheet, attribute.NameAndValue->Value, attribute.Value);
            for (const auto& [range, field] : attribute.Fields)
                visit(NameKind::Field, field, range);
        }
    }
}

} // namespace tooltipreport
