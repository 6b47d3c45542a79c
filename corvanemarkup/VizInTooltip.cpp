#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvanemarkup/internal/Check.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvanemarkup/internal/TextTable.h>
#include <corvaneplatform/transform_to.h>

#include <algorithm>
#include <utility>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;

namespace {

/// Returns the properties of a valid sheet element; none for any other text.
boost::optional<VizInTooltipProperties> ReadValidProperties(const MarkupText& markupText)
{
    auto properties = VizInTooltipProperties::FromMarkupText(markupText);
    if (properties && !properties->IsValid())
        properties = boost::none;
    return properties;
}

/// Calls `visit` with each field of the element's filter, in text order. A view is valid only during its
/// call.
template <typename Visit>
void ForEachFieldOf(const SheetElement& element, Visit visit)
{
    TextView rest = element.RawFilter();
    rest.remove_prefix(ReadCanonicalFields(rest, visit));
    if (rest.empty())
        return;
    TString unescaped;
    if (element.Values.MayHoldQuotes) {
        unescaped = Unescape(rest);
        rest = ViewOf(unescaped);
    }
    ForEachFieldFrom(0, rest, [&](const ElementBounds& field) { visit(field.ContentIn(rest)); });
}

/// Returns the fields that the element defines for its sheet; none if it can't define any.
std::set<TString> FieldsOf(const SheetElement& element)
{
    std::set<TString> fields;
    if (!element.HasFilter()) {
        fields.insert(ToString(Impl::AllFieldsLiteral));
        return fields;
    }
    // Fields are often sorted; each string is constructed in place.
    ForEachFieldOf(element, [&](TextView field) {
        fields.emplace_hint(fields.end(), field.data(), static_cast<int>(field.size()));
    });
    return fields;
}

/// The element that decides the fields of each sheet: of those that have fields or no filter, the one whose
/// content is least.
class DecidingElements
{
public:
    explicit DecidingElements(TextView tooltipText)
    {
        SheetElementWalk walk(tooltipText);
        // Each element is read in place, where it stays if its sheet is new.
        SheetElement* element = &m_elements.Add();
        while (walk.Next(*element)) {
            const std::size_t sheet = m_names.Add(element->RawName());
            if (sheet + 1 == m_elements.Count())
                element = &m_elements.Add();
            else if (!AreSame(element->Content, m_elements[sheet].Content))
                AddRival(sheet, *element);
        }
    }

    [[nodiscard]] std::map<TString, std::set<TString>> ToFieldsBySheet() const
    {
        std::map<TString, std::set<TString>> fieldsBySheet;
        for (std::size_t sheet = 0; sheet < m_names.Count(); ++sheet) {
            auto fields = FieldsOf(m_elements[sheet]);
            if (!fields.empty())
                fieldsBySheet.emplace_hint(fieldsBySheet.end(), m_elements[sheet].Name(), std::move(fields));
        }
        return fieldsBySheet;
    }

private:
    /// Cached properties of a deciding element that has rivals.
    struct Known
    {
        TString Content;
        bool CanDecide;
    };

    static bool CanDecide(const SheetElement& element)
    {
        bool hasFields = false;
        ForEachFieldOf(element, [&](TextView) { hasFields = true; });
        return hasFields || !element.HasFilter();
    }

    void AddRival(std::size_t sheet, const SheetElement& rival)
    {
        SheetElement& element = m_elements[sheet];
        if (m_known.size() <= sheet)
            m_known.resize(m_elements.Count());
        boost::optional<Known>& known = m_known[sheet];
        if (!known)
            known = Known{ToString(element.Content), CanDecide(element)};
        TString rivalContent = ToString(rival.Content);
        const bool comesFirst = !known->CanDecide || rivalContent < known->Content;
        if (comesFirst && CanDecide(rival)) {
            known = Known{std::move(rivalContent), true};
            element = rival;
        }
    }

    TextTable m_names; ///< raw, which identifies a name as well: each has only one raw value
    FewOrMany<SheetElement> m_elements;
    std::vector<boost::optional<Known>> m_known;
};

/// Returns the distinct valid sheet elements of a tooltip, in ascending order of their contents.
std::vector<SheetElement> SheetElementsByText(const TString& tooltipText)
{
    TextTable contents;
    std::vector<SheetElement> elements;
    SheetElementWalk walk(ViewOf(tooltipText));
    for (SheetElement element; walk.Next(element);)
        if (contents.Add(element.Content) == elements.size())
            elements.push_back(element);
    if (elements.size() < 2)
        return elements;

    std::vector<std::pair<TString, const SheetElement*>> sorted; // by the platform's order of texts
    sorted.reserve(elements.size());
    for (const SheetElement& element : elements)
        sorted.emplace_back(ToString(element.Content), &element);
    std::sort(sorted.begin(), sorted.end(),
              [](const auto& left, const auto& right) { return left.first < right.first; });
    return corvane::transform_to<std::vector<SheetElement>>(sorted,
                                                            [](const auto& item) { return *item.second; });
}

boost::optional<Impl::AttributeTokenOffsetAndContent> FindToken(const MarkupText& sheetMarkupText,
                                                                Impl::SheetMarkupAttribute attribute)
{
    return Impl::FindAttributeTokenOffsetAndContent(sheetMarkupText,
                                                    AttributeName(ToString(LiteralOf(attribute))));
}

/// Returns the difference, which wraps as two's complement if it doesn't fit.
std::int64_t WrappingDifference(std::int64_t left, std::int64_t right)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) - static_cast<std::uint64_t>(right));
}

} // namespace

TString GetTargetSheetNameFromMarkupText(const TString& markupText)
{
    SheetElement element;
    return ReadSheetElement(ViewOf(markupText), element) ? element.Name() : TString();
}

std::set<TString> GetTargetSheetNamesFromMarkupElementSet(const std::set<TString>& markupElements)
{
    auto names = corvane::transform_to<std::set<TString>>(markupElements, GetTargetSheetNameFromMarkupText);
    names.erase(TString());
    return names;
}

std::set<TString> GetTargetSheetNamesFromTooltipText(const TString& tooltipText)
{
    TextTable different; // of escaped names, which is as good: a name has one escaped form
    bool mayHoldQuotes = false;
    SheetElementWalk walk(ViewOf(tooltipText));
    for (SheetElement element; walk.Next(element);) {
        different.Add(element.RawName());
        mayHoldQuotes = mayHoldQuotes || element.Values.MayHoldQuotes;
    }
    std::set<TString> names;
    for (std::size_t i = 0; i < different.Count(); ++i)
        names.insert(names.end(), Unescape(different[i], mayHoldQuotes));
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
    // Starts after the name, the `=` and the opening quote, and ends before the closing quote.
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

    // After the name, the `=` and the opening quote. Positions of fields are in the unescaped value.
    const int valueStart = token->Offset + filter->Name.GetName().length() + 2;
    const std::int64_t start = WrappingDifference(charRange.start, valueStart);
    const std::int64_t end = WrappingDifference(charRange.end, valueStart);
    // The first test narrows the start to 32 bits, as a cursor position is; the other two compare 64 bits.
    // The difference is on purpose: it affects the results for ranges beyond 32 bits.
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
    std::vector<TString> fields = vizInTooltipProperties->GetFilterFields();
    std::size_t start = NotFound;
    std::size_t end = NotFound;
    if (!fieldIndices.empty() && fieldToInsert != exclusiveField) {
        const int first = fieldIndices.front();
        const int last = fieldIndices.back();
        const int fieldCount = static_cast<int>(fields.size());
        CORVANEMARKUP_CHECK("corvanemarkup/VizInTooltip",
                            first >= 0 && first - 1 <= last && last < fieldCount);
        start = static_cast<std::size_t>(first);
        end = static_cast<std::size_t>(last) + 1;
    }
    fields = InsertField(std::move(fields), start, end, fieldToInsert, exclusiveField);
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
    return DecidingElements(ViewOf(tooltipText)).ToFieldsBySheet();
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
    // Visits the elements in descending order, rather than inserting at the front of a growing list.
    for (auto element = elements.rbegin(); element != elements.rend(); ++element)
        ForEachFieldOf(*element, [&](TextView field) { fields.push_back(ToString(field)); });
    return fields;
}

} // namespace corvanemarkup::VizInTooltip
