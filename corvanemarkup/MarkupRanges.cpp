#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/EditedElement.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/LenientReader.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/TextView.h>

#include <algorithm>

namespace corvanemarkup::VizInTooltip {

using namespace Internal;
using Ending = WalkedElement::Ending;

namespace {

class NameFinder
{
public:
    explicit NameFinder(TextView text) : m_text(text) {}

    std::vector<SheetOrFieldName> Find()
    {
        ElementWalk walk(m_text);
        while (walk.Next(m_element))
            FindInElement();
        return std::move(m_names);
    }

private:
    void FindInElement();
    void FindInUnreadable();
    void AddOf(TextView attributeName, TextView rawValue);

    void Add(NameKind kind, NameStatus status, TextView raw, TString name)
    {
        m_names.push_back(
            {kind, status, std::move(name), RangeOf(raw, m_text), RangeOf(m_element.Whole, m_text)});
    }

    TextView m_text;
    std::vector<SheetOrFieldName> m_names;
    WalkedElement m_element{};
    NameStatus m_status{}; ///< of the names in that element
    std::u16string m_scratch;
};

void NameFinder::FindInElement()
{
    const bool isClosed = m_element.EndsWith == Ending::Bracket;
    const TextView content = m_element.Content;
    const bool isCalledSheet = IsCalledSheet(content);
    if (isCalledSheet ? isClosed && IsPlain(m_text, content) : isClosed || !content.empty())
        Add(NameKind::Field, isClosed ? NameStatus::Reachable : NameStatus::InUnclosedElement, content,
            ToString(content));
    if (!isCalledSheet)
        return;

    SheetElement valid;
    m_status = !isClosed                          ? NameStatus::InUnclosedElement
               : ReadSheetElement(content, valid) ? NameStatus::Reachable
                                                  : NameStatus::InInvalidSheet;
    ReadableElement element;
    if (!ReadElement(content, element))
        return FindInUnreadable();
    for (const AttributeParts& attribute : element.Attributes)
        AddOf(attribute.Name, attribute.RawValue);
}

void NameFinder::FindInUnreadable()
{
    const TextView content = m_element.Content;
    std::size_t position = SkipWhiteSpace(content, Impl::SheetMarkupElementLiteral.size());
    while (position < content.size()) {
        const LenientAttribute attribute = ReadLenientAttribute(content, position);
        position = SkipWhiteSpace(content, position + attribute.Whole.size());
        const std::size_t equals = std::min(attribute.Whole.find(u'='), attribute.Whole.size() - 1);
        TextView value = Trimmed(attribute.Whole.substr(equals + 1));
        if (!value.empty() && value.front() == u'"') {
            value.remove_prefix(1);
            value = value.substr(0, FindNotEscaped<u'"'>(value, 0));
        }
        AddOf(attribute.Whole.substr(0, equals), value);
    }
}

void NameFinder::AddOf(TextView attributeName, TextView rawValue)
{
    const auto attribute = FindAllowedAttribute(Trimmed(attributeName));
    if (attribute == Impl::SheetMarkupAttribute::Name && !rawValue.empty())
        Add(NameKind::Sheet, m_status, rawValue, Unescape(rawValue));
    if (attribute != Impl::SheetMarkupAttribute::Filter)
        return;
    ForEachFilterPart(
        rawValue, m_scratch,
        [this](TextView raw, TextView unescaped) {
            Add(NameKind::Field, m_status, raw.substr(1, raw.size() - 2),
                ToString(unescaped.substr(1, unescaped.size() - 2)));
        },
        [this](TextView stray) {
            TString name = Unescape(stray);
            if (CanNameField(ViewOf(name)))
                Add(NameKind::Field,
                    m_status == NameStatus::Reachable ? NameStatus::WithoutBrackets : m_status, stray,
                    std::move(name));
        });
}

} // namespace

TString TextIn(const TString& text, CorvaneCharRange range)
{
    const TextView view = ViewOf(text);
    const auto length = static_cast<std::int64_t>(view.size());
    const std::int64_t start = std::clamp<std::int64_t>(range.start, 0, length);
    return ToString(PartOf(view, {start, std::clamp(range.end, start, length)}));
}

std::vector<ElementRanges> FindElementRanges(const TString& tooltipText)
{
    const TextView text = ViewOf(tooltipText);
    std::vector<ElementRanges> elements;
    ElementWalk walk(text);
    for (WalkedElement element; walk.Next(element);) {
        ElementEnd end = ElementEnd::Unterminated;
        if (element.EndsWith == Ending::Bracket)
            end = ElementEnd::Bracket;
        else if (element.EndsWith == Ending::Interrupted)
            end = ElementEnd::Interrupted;
        elements.push_back({RangeOf(element.Whole, text), RangeOf(element.Content, text), end});
    }
    return elements;
}

ElementKind GetElementKind(const TString& text, const ElementRanges& element)
{
    if (!IsIn(ViewOf(text), element.Content))
        return ElementKind::Plain;
    const TextView content = PartOf(ViewOf(text), element.Content);
    if (!IsCalledSheet(content))
        return ElementKind::Plain;
    SheetElement valid;
    if (element.End == ElementEnd::Bracket && ReadSheetElement(content, valid))
        return ElementKind::Sheet;
    ReadableElement readable;
    return ReadElement(content, readable) ? ElementKind::InvalidSheet : ElementKind::UnreadableSheet;
}

std::vector<AttributeRanges> FindAttributeRanges(const TString& text, CorvaneCharRange contentRange)
{
    const TextView whole = ViewOf(text);
    std::vector<AttributeRanges> attributes;
    if (!IsIn(whole, contentRange))
        return attributes;

    ContentReader reader(PartOf(whole, contentRange));
    std::u16string scratch;
    for (AttributeParts parts; reader.Next(parts);) {
        AttributeRanges& attribute = attributes.emplace_back(AttributeRanges{
            RangeOf(parts.Whole, whole), RangeOf(parts.Name, whole), RangeOf(parts.RawValue, whole), {}, {}});
        if (parts.IsNameAndValue)
            attribute.NameAndValue = parts.ToNameAndValue();
        if (AreSameAttributeName(parts.Name, LiteralOf(Impl::SheetMarkupAttribute::Filter)))
            ForEachRawField(parts.RawValue, scratch, [&](TextView raw, TextView unescaped) {
                attribute.Fields.emplace_back(RangeOf(raw, whole),
                                              ToString(unescaped.substr(1, unescaped.size() - 2)));
            });
    }
    return attributes;
}

std::vector<SheetOrFieldName> FindSheetAndFieldNames(const TString& tooltipText)
{
    return NameFinder(ViewOf(tooltipText)).Find();
}

} // namespace corvanemarkup::VizInTooltip
