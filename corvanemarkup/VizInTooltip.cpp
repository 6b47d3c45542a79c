#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/Check.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/RecentTexts.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvaneplatform/transform_to.h>

#include <algorithm>
#include <utility>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;

namespace {

/// The properties of a valid sheet element; none for any other text.
boost::optional<VizInTooltipProperties> ReadValidProperties(const MarkupText& markupText)
{
    auto properties = VizInTooltipProperties::FromMarkupText(markupText);
    if (properties && !properties->IsValid())
        properties = boost::none;
    return properties;
}

/// The valid sheet elements of a tooltip in the order of their texts, without repeats.
std::vector<SheetElement> SheetElementsByText(const TString& tooltipText)
{
    std::map<TString, SheetElement> sorted; // by the platform's order of texts
    SheetElementWalk walk(ViewOf(tooltipText));
    for (SheetElement element; walk.Next(element);)
        sorted.emplace(ToString(element.Content), element);
    return corvane::transform_to<std::vector<SheetElement>>(sorted,
                                                            [](const auto& item) { return item.second; });
}

/// Calls `visit` with each field of the element's filter, in text order.
template <typename Visit>
void ForEachFieldOf(const SheetElement& element, Visit visit)
{
    TextView filter = element.EscapedFilter;
    TString unescaped;
    if (filter.find(u'"') != NotFound) {
        unescaped = Unescape(filter);
        filter = ViewOf(unescaped);
    }
    ForEachField(filter, [&](const ElementBounds& field) { visit(ToString(field.ContentIn(filter))); });
}

/// Adds the fields of the element's sheet, unless the element has a filter without fields. False if the sheet
/// is there already; nothing changes then.
bool AddFieldsOfSheet(const SheetElement& element, std::map<TString, std::set<TString>>& fieldsBySheet)
{
    std::set<TString> fields;
    ForEachFieldOf(element, [&](TString field) { fields.insert(std::move(field)); });
    if (element.EscapedFilter.data() == nullptr)
        fields.insert(TString(u"All Fields", -1));
    return fields.empty() || fieldsBySheet.emplace(Unescape(element.EscapedName), std::move(fields)).second;
}

void Erase(std::vector<TString>& fields, const TString& field)
{
    fields.erase(std::remove(fields.begin(), fields.end(), field), fields.end());
}

boost::optional<Impl::AttributeTokenOffsetAndContent> FindToken(const MarkupText& sheetMarkupText,
                                                                Impl::SheetMarkupAttribute attribute)
{
    return Impl::FindAttributeTokenOffsetAndContent(sheetMarkupText,
                                                    AttributeName(ToString(LiteralOf(attribute))));
}

/// The difference as two's complement gives it, also where it doesn't fit.
std::int64_t WrappingDifference(std::int64_t left, std::int64_t right)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) - static_cast<std::uint64_t>(right));
}

} // namespace

TString GetTargetSheetNameFromMarkupText(const TString& markupText)
{
    SheetElement element;
    return ReadSheetElement(ViewOf(markupText), element) ? Unescape(element.EscapedName) : TString();
}

std::set<TString> GetTargetSheetNamesFromMarkupElementSet(const std::set<TString>& markupElements)
{
    auto names = corvane::transform_to<std::set<TString>>(markupElements, GetTargetSheetNameFromMarkupText);
    names.erase(TString());
    return names;
}

std::set<TString> GetTargetSheetNamesFromTooltipText(const TString& tooltipText)
{
    std::set<TString> names;
    RecentTexts recentNames;
    SheetElementWalk walk(ViewOf(tooltipText));
    for (SheetElement element; walk.Next(element);)
        if (recentNames.Add(element.EscapedName))
            names.insert(Unescape(element.EscapedName));
    return names;
}

bool ReplaceSheetNameInSheetMarkupText(const MarkupText& sheetMarkupText, const TString& currentSheetName,
                                       const TString& newSheetName, MarkupText& replacedSheetMarkupText)
{
    const auto properties = ReadValidProperties(sheetMarkupText);
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
    const auto second = ReadValidProperties(secondMarkupText);
    return second ? vizInTooltipProperties->WithSheetName(second->GetSheetName()).ToSheetMarkupText()
                  : firstMarkupText;
}

CorvaneCharRange GetCharRangeOfSheetNameAttributeValue(const MarkupText& sheetMarkupText)
{
    constexpr auto name = Impl::SheetMarkupAttribute::Name;
    const auto nameToken = FindToken(sheetMarkupText, name);
    CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltip", nameToken);
    // After the name, the `=` and the opening quote; up to the closing quote.
    const int nameLength = static_cast<int>(LiteralOf(name).size());
    return {nameToken->Offset + nameLength + 2, nameToken->Offset + nameToken->Content.length() - 1};
}

boost::optional<CorvaneCharRange> FindFilterAttributeToken(const MarkupText& sheetMarkupText)
{
    const auto token = FindToken(sheetMarkupText, Impl::SheetMarkupAttribute::Filter);
    if (!token)
        return boost::none;
    return CorvaneCharRange{token->Offset, token->Offset + token->Content.length()};
}

std::vector<int> GetIndexOfFiltersAtCharRange(const MarkupText& sheetMarkupText, CorvaneCharRange charRange)
{
    const auto token = FindToken(sheetMarkupText, Impl::SheetMarkupAttribute::Filter);
    if (!token)
        return {};
    const auto filter = Impl::ExtractNameAndValue(token->Content);

    // After the name, the `=` and the opening quote. The ranges of the fields count in the unescaped value.
    const int valueStart = token->Offset + filter->Name.GetName().length() + 2;
    const std::int64_t start = WrappingDifference(charRange.start, valueStart);
    const std::int64_t end = WrappingDifference(charRange.end, valueStart);
    // The first test takes the start for a position in the text, of 32 bits, as a cursor is; the other two
    // look at all 64 bits of both ends. Results for ranges that reach further depend on it, so that neither
    // may be made like the other.
    const auto narrowedStart = static_cast<std::int32_t>(start);

    std::vector<int> indices;
    int index = 0;
    ForEachField(ViewOf(filter->Value), [&](const ElementBounds& element) {
        const auto fieldStart = static_cast<std::int64_t>(element.Start);
        const auto fieldEnd = static_cast<std::int64_t>(element.End) + 1;
        const bool startsInside = fieldStart < narrowedStart && fieldEnd > narrowedStart;
        const bool isReached = start < fieldStart && end > fieldStart;
        const bool isExactly = fieldStart == start && fieldEnd == end;
        if (startsInside || isReached || isExactly)
            indices.push_back(index);
        ++index;
    });
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
    SheetElementWalk walk(ViewOf(tooltipText));
    for (SheetElement element; walk.Next(element);) {
        if (AddFieldsOfSheet(element, fieldsBySheet))
            continue;
        // Only where a sheet is named twice does it matter that the first element in the order of the texts
        // decides.
        fieldsBySheet.clear();
        for (const SheetElement& sorted : SheetElementsByText(tooltipText))
            AddFieldsOfSheet(sorted, fieldsBySheet);
        break;
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
    const std::vector<SheetElement> elements = SheetElementsByText(tooltipText);
    std::vector<TString> fields;
    // From the last element to the first, so that nothing is inserted at the front of a growing list.
    for (auto element = elements.rbegin(); element != elements.rend(); ++element)
        ForEachFieldOf(*element, [&](TString field) { fields.push_back(std::move(field)); });
    return fields;
}

} // namespace corvanemarkup::VizInTooltip
