#include <corvanemarkup/Check.h>
#include <corvanemarkup/SheetMarkupConstants.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/transform_to.h>

namespace corvanemarkup::VizInTooltip {

namespace {

/// None unless the text is a valid sheet element.
boost::optional<VizInTooltipProperties> ValidSheetElement(const MarkupText& markupText)
{
    auto properties = VizInTooltipProperties::FromMarkupText(markupText);
    if (properties && !properties->IsValid())
        properties = boost::none;
    return properties;
}

} // namespace

TString GetTargetSheetNameFromMarkupText(const TString& markupText)
{
    const auto properties = ValidSheetElement(MarkupText(markupText));
    return properties ? properties->GetSheetName() : TString();
}

std::set<TString> GetTargetSheetNamesFromMarkupElementSet(const std::set<TString>& markupElements)
{
    auto names = corvane::transform_to<std::set<TString>>(markupElements, GetTargetSheetNameFromMarkupText);
    names.erase(TString());
    return names;
}

std::set<TString> GetTargetSheetNamesFromTooltipText(const TString& tooltipText)
{
    return GetTargetSheetNamesFromMarkupElementSet(CollectMarkupElements(tooltipText));
}

bool ReplaceSheetNameInSheetMarkupText(const MarkupText& sheetMarkupText, const TString& currentSheetName,
                                       const TString& newSheetName, MarkupText& replacedSheetMarkupText)
{
    const auto properties = ValidSheetElement(sheetMarkupText);
    if (!properties || properties->GetSheetName() != currentSheetName)
        return false;
    replacedSheetMarkupText = properties->WithSheetName(newSheetName).ToSheetMarkupText();
    return true;
}

MarkupText ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond(const MarkupText& firstMarkupText,
                                                                    const MarkupText& secondMarkupText)
{
    const auto vizInTooltipProperties = VizInTooltipProperties::FromMarkupText(firstMarkupText);
    CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltip",
                        vizInTooltipProperties && vizInTooltipProperties->IsValid());
    const auto second = ValidSheetElement(secondMarkupText);
    return second ? vizInTooltipProperties->WithSheetName(second->GetSheetName()).ToSheetMarkupText()
                  : firstMarkupText;
}

CorvaneCharRange GetCharRangeOfSheetNameAttributeValue(const MarkupText& sheetMarkupText)
{
    const AttributeName& name = Impl::SheetMarkupAttributeNames::Name;
    const auto nameToken = Impl::FindAttributeTokenOffsetAndContent(sheetMarkupText, name);
    CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltip", nameToken);
    // Behind the name, the `=` and the opening quote; up to the closing quote.
    return {nameToken->Offset + name.GetName().length() + 2,
            nameToken->Offset + nameToken->Content.length() - 1};
}

} // namespace corvanemarkup::VizInTooltip
