#include <corvanemarkup/Check.h>
#include <corvanemarkup/SheetMarkupConstants.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/transform_to.h>

#include <algorithm>
#include <iterator>

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

bool AcceptAll(const TString& /*content*/)
{
    return true;
}

void Erase(std::vector<TString>& fields, const TString& field)
{
    fields.erase(std::remove(fields.begin(), fields.end(), field), fields.end());
}

/// The difference as two's complement gives it, also where it doesn't fit.
std::int64_t WrappingDifference(std::int64_t left, std::int64_t right)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) - static_cast<std::uint64_t>(right));
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

boost::optional<CorvaneCharRange> FindFilterAttributeToken(const MarkupText& sheetMarkupText)
{
    const auto token =
        Impl::FindAttributeTokenOffsetAndContent(sheetMarkupText, Impl::SheetMarkupAttributeNames::Filter);
    if (!token)
        return boost::none;
    return CorvaneCharRange{token->Offset, token->Offset + token->Content.length()};
}

std::vector<int> GetIndexOfFiltersAtCharRange(const MarkupText& sheetMarkupText, CorvaneCharRange charRange)
{
    const auto token =
        Impl::FindAttributeTokenOffsetAndContent(sheetMarkupText, Impl::SheetMarkupAttributeNames::Filter);
    if (!token)
        return {};
    const auto filter = Impl::ExtractNameAndValue(token->Content);

    // Behind the name, the `=` and the opening quote. The ranges of the fields count in the unescaped value.
    const int valueStart = token->Offset + filter->Name.GetName().length() + 2;
    const std::int64_t start = WrappingDifference(charRange.start, valueStart);
    const std::int64_t end = WrappingDifference(charRange.end, valueStart);
    const auto narrowedStart = static_cast<std::int32_t>(start);

    std::vector<int> indices;
    int index = 0;
    for (const auto& [field, content] : FindCharRangesOfKnownMarkupElements(filter->Value, AcceptAll)) {
        const bool startsInside = field.start < narrowedStart && field.end > narrowedStart;
        const bool isReached = start < field.start && end > field.start;
        const bool isExactly = field.start == start && field.end == end;
        if (startsInside || isReached || isExactly)
            indices.push_back(index);
        ++index;
    }
    return indices;
}

MarkupText InsertFilterFieldIntoMarkupText(const MarkupText& sheetMarkupText, const TString& fieldToInsert,
                                           const TString& exclusiveField,
                                           const std::vector<int>& fieldIndices)
{
    const auto vizInTooltipProperties = VizInTooltipProperties::FromMarkupText(sheetMarkupText);
    CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltip", vizInTooltipProperties);
    if (fieldToInsert == exclusiveField)
        return vizInTooltipProperties->WithFilterFields({exclusiveField}).ToSheetMarkupText();

    std::vector<TString> fields = vizInTooltipProperties->GetFilterFields();
    if (fieldIndices.empty()) {
        Erase(fields, fieldToInsert);
        fields.push_back(fieldToInsert);
    } else {
        const int first = fieldIndices.front();
        const int last = fieldIndices.back();
        const int fieldCount = static_cast<int>(fields.size());
        CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltip",
                            first >= 0 && first - 1 <= last && last < fieldCount);
        const auto place = fields.erase(fields.begin() + first, fields.begin() + (last + 1));
        fields.insert(place, fieldToInsert);
    }
    // The new field isn't the exclusive one, so that this can come last.
    Erase(fields, exclusiveField);
    return vizInTooltipProperties->WithFilterFields(fields).ToSheetMarkupText();
}

NewCursorPositionAndMarkupText InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(
    const MarkupText& sheetMarkupText, const CorvaneCharRange& charRange, const TString& fieldToInsert,
    const TString& exclusiveField)
{
    MarkupText newMarkupText =
        InsertFilterFieldIntoMarkupText(sheetMarkupText, fieldToInsert, exclusiveField,
                                        GetIndexOfFiltersAtCharRange(sheetMarkupText, charRange));
    const auto filterCharRange = FindFilterAttributeToken(newMarkupText);
    CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltip", filterCharRange);
    return {static_cast<int>(filterCharRange->end), std::move(newMarkupText)};
}

std::map<TString, std::set<TString>>
GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(const TString& tooltipText)
{
    std::map<TString, std::set<TString>> fieldsBySheet;
    for (const TString& element : CollectMarkupElements(tooltipText)) {
        const auto properties = ValidSheetElement(MarkupText(element));
        if (!properties || fieldsBySheet.count(properties->GetSheetName()) != 0)
            continue;
        std::set<TString> fields;
        if (properties->HasFilter()) {
            for (TString& field : properties->GetFilterFields())
                fields.insert(std::move(field));
        } else {
            fields.insert(TString(u"All Fields", -1));
        }
        if (!fields.empty())
            fieldsBySheet.emplace(properties->GetSheetName(), std::move(fields));
    }
    return fieldsBySheet;
}

std::vector<TString> CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(const TString& previousTooltipText,
                                                                          const TString& currentTooltipText)
{
    const auto previous = GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(previousTooltipText);
    const auto current = GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(currentTooltipText);
    std::vector<TString> sheets;
    for (const auto& [sheet, fields] : previous) {
        const auto found = current.find(sheet);
        if (found == current.end() || found->second != fields)
            sheets.push_back(sheet);
    }
    return sheets;
}

std::vector<TString> GetFilterFieldsFromSheetMarkupInTooltipText(const TString& tooltipText)
{
    std::vector<TString> fields;
    const std::set<TString> elements = CollectMarkupElements(tooltipText);
    // From the last element to the first, so that nothing is inserted at the front of a growing list.
    for (auto element = elements.rbegin(); element != elements.rend(); ++element) {
        if (const auto properties = ValidSheetElement(MarkupText(*element))) {
            std::vector<TString> own = properties->GetFilterFields();
            std::move(own.begin(), own.end(), std::back_inserter(fields));
        }
    }
    return fields;
}

} // namespace corvanemarkup::VizInTooltip
