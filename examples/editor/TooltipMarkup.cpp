#include "TooltipMarkup.h"

#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/ThrowLogicException.h>

#include <algorithm>
#include <stdexcept>

namespace editor {

namespace {

using namespace corvanemarkup;
namespace Impl = VizInTooltip::Impl;

MarkupText ContentOf(const TString& tooltip, const Element& element)
{
    return MarkupText(tooltip.mid(element.Where.Start + 1, element.Where.End - element.Where.Start - 2));
}

/// Tells the faults of a sheet element as sentences.
std::string FaultsOf(const VizInTooltipProperties& sheet)
{
    std::string faults;
    const auto add = [&](bool isThere, const char* sentence) {
        if (isThere)
            faults += (faults.empty() ? "" : " ") + std::string(sentence);
    };
    add(sheet.HasDuplicateAttributes(), "An attribute occurs twice.");
    add(sheet.MissingSheetName(), "The name of the sheet is missing.");
    add(sheet.HasInvalidSheetSize(), "maxwidth must be from 1 to 2000, and maxheight from 1 to 1500.");
    add(sheet.HasUnallowedAttributes(), "Only name, maxwidth, maxheight and filter are allowed.");
    return faults;
}

/// The value of a `filter` attribute as it stands in the text, where quotes are doubled, beside the value as
/// meant, in which the library counts.
class FilterValue
{
public:
    FilterValue(const MarkupText& content, Range attribute)
    {
        const TString& text = content;
        const int start = text.Find(u'"', attribute.Start) + 1;
        const int end = attribute.End - 1;
        for (int position = start; position < end; ++position) {
            m_positions.push_back(position);
            if (text[position] == u'"')
                ++position;
        }
        m_positions.push_back(end);
    }

    /// Where the unit of the value that has this index stands in the text.
    [[nodiscard]] int ToPosition(std::int64_t index) const
    {
        return m_positions[static_cast<std::size_t>(index)];
    }

    /// A position in the text as the library counts it: each doubled quote of the value in front of it counts
    /// as one. Everything after the value counts as just after its closing quote.
    [[nodiscard]] int ToCounted(int position) const
    {
        const auto next = std::lower_bound(m_positions.begin(), m_positions.end(), position);
        return std::min(position, m_positions.front() + static_cast<int>(next - m_positions.begin()));
    }

private:
    std::vector<int> m_positions;
};

/// Where the element has a filter. It must be one that `VizInTooltipProperties` reads.
boost::optional<FilterValue> FindFilterValue(const MarkupText& content)
{
    const auto attribute = VizInTooltip::FindFilterAttributeToken(content);
    if (!attribute)
        return {};
    return FilterValue(content, {static_cast<int>(attribute->start), static_cast<int>(attribute->end)});
}

bool IsFieldThatReadsBack(const TString& field)
{
    TString content;
    return !field.empty() && FindNextMarkupElement(SurroundWithAngleBrackets(field), 0, content) == 0 &&
           content == field;
}

} // namespace

std::vector<Element> FindElements(const TString& tooltip)
{
    // The single steps of a tokenizer go on from the element found last. So one is put in front, with a space
    // that keeps its bracket from pairing with what follows.
    const TString lead(u"<> ", -1);
    CorvaneMarkupTokenizer tokenizer(lead + tooltip);
    std::vector<Element> elements;
    const auto add = [&](int start, int end, bool hasEnd) {
        elements.push_back({{start - lead.length(), end - lead.length()}, hasEnd});
    };
    tokenizer.FindNextMarkupElement(0);
    for (;;) {
        const int from = tokenizer.GetOffset() + 1;
        tokenizer.FindStartOfToken();
        const int firstBracket = tokenizer.GetOffset();
        if (firstBracket < 0)
            return elements;
        const int start = tokenizer.FindNextMarkupElement(from);
        if (start != firstBracket)
            add(firstBracket, start < 0 ? lead.length() + tooltip.length() : start, false);
        if (start < 0)
            return elements;
        add(start, tokenizer.GetOffset() + 1, true);
    }
}

ElementDetails ReadElement(const TString& tooltip, const Element& element)
{
    ElementDetails details;
    if (!element.HasEnd) {
        details.Kind = ElementKind::Unfinished;
        details.Fault = element.Where.End == tooltip.length()
                            ? "Nothing ends this element, which hides all that follows it."
                            : "Another element begins before this one ends.";
        return details;
    }
    const MarkupText content = ContentOf(tooltip, element);
    const auto sheet = VizInTooltipProperties::FromMarkupText(content);
    if (!sheet) {
        if (Impl::IsSheetMarkupText(content, 0)) {
            details.Kind = ElementKind::InvalidSheet;
            details.Fault =
                "Each attribute must be a name, = and a value in double quotes, with spaces between.";
        }
        return details;
    }
    details.Kind = sheet->IsValid() ? ElementKind::Sheet : ElementKind::InvalidSheet;
    details.Fault = FaultsOf(*sheet);
    details.SheetName = sheet->GetSheetName();
    const int contentStart = element.Where.Start + 1;
    if (!details.SheetName.empty()) {
        const CorvaneCharRange name = VizInTooltip::GetCharRangeOfSheetNameAttributeValue(content);
        details.SheetNameRange =
            Range{contentStart + static_cast<int>(name.start), contentStart + static_cast<int>(name.end)};
    }
    if (const auto value = FindFilterValue(content)) {
        const auto fields = FindCharRangesOfKnownMarkupElements(*sheet->GetFilterValue(),
                                                                [](const TString&) { return true; });
        for (const auto& [range, field] : fields)
            details.FieldRanges.push_back({contentStart + value->ToPosition(range.start),
                                           contentStart + value->ToPosition(range.end - 1) + 1});
    }
    return details;
}

Insertion InsertField(const TString& tooltip, const Element& element, Range selection, const TString& field)
{
    const MarkupText content = ContentOf(tooltip, element);
    if (!element.HasEnd || !VizInTooltipProperties::FromMarkupText(content))
        throw std::runtime_error("This element can't be read as a sheet element.");
    if (!IsFieldThatReadsBack(field))
        throw std::runtime_error("A field of this name can't stand between < and >.");
    const int contentStart = element.Where.Start + 1;
    CorvaneCharRange range{selection.Start - contentStart, selection.End - contentStart};
    if (const auto value = FindFilterValue(content))
        range = {value->ToCounted(selection.Start - contentStart),
                 value->ToCounted(selection.End - contentStart)};
    try {
        const auto edit = VizInTooltip::InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(
            content, range, field, TString(u"All", -1));
        if (Impl::IsSheetMarkupText(edit.NewMarkupText, 0))
            return {{{contentStart, element.Where.End - 1}, edit.NewMarkupText},
                    contentStart + edit.NewCursorPosition};
    } catch (const LogicException&) { // what comes of an attribute whose name holds a quote doesn't read back
    }
    throw std::runtime_error("The first attribute of the element doesn't allow a filter.");
}

std::vector<Edit> RenameSheet(const TString& tooltip, const std::vector<Element>& elements,
                              const TString& currentName, const TString& newName)
{
    std::vector<Edit> edits;
    for (const Element& element : elements) {
        MarkupText renamed;
        if (element.HasEnd && VizInTooltip::ReplaceSheetNameInSheetMarkupText(ContentOf(tooltip, element),
                                                                              currentName, newName, renamed))
            edits.push_back({{element.Where.Start + 1, element.Where.End - 1}, renamed});
    }
    return edits;
}

} // namespace editor
