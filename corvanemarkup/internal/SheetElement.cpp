#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/CanonicalForm.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/SheetSearch.h>
#include <corvanemarkup/internal/SheetSize.h>
#include <corvanemarkup/internal/TokenReader.h>

namespace corvanemarkup::Internal {

using VizInTooltip::Impl::SheetMarkupAttribute;

namespace {

int NumberOr(const SheetAttributeValues& values, SheetMarkupAttribute attribute, int defaultNumber)
{
    return values.Has(attribute) ? ReadSheetLength(values[attribute]) : defaultNumber;
}

/// Returns whether an element with these attributes, none of which occurs twice, is valid as
/// `VizInTooltipProperties::IsValid` defines it.
bool AreValid(const SheetAttributeValues& values)
{
    const TSize size(NumberOr(values, SheetMarkupAttribute::MaxWidth, VizInTooltip::DefaultMaxSize.width),
                     NumberOr(values, SheetMarkupAttribute::MaxHeight, VizInTooltip::DefaultMaxSize.height));
    return !values[SheetMarkupAttribute::Name].empty() && IsValidSheetSize(size);
}

} // namespace

bool ReadSheetElement(TextView content, SheetElement& element)
{
    TokenReader reader(content);
    TokenView token;
    if (!reader.Next(token) || token.Text != VizInTooltip::Impl::SheetMarkupElementLiteral)
        return false;

    element = {content, {}};
    element.Values.MayHoldQuotes = true;
    while (reader.Next(token)) {
        if (token.Kind != TokenKind::Attribute)
            continue;
        const auto attribute = SplitAttribute(token.Text);
        if (!attribute)
            return false;
        const auto allowed = FindAllowedAttribute(attribute->Name);
        if (!allowed || element.Values.Has(*allowed))
            return false;
        element.Values[*allowed] = attribute->RawValue;
    }
    return !reader.Failed() && AreValid(element.Values);
}

bool SheetElementWalk::Next(SheetElement& element)
{
    // Plain elements can be skipped without finding their ends. Quotes always protect brackets in a valid
    // sheet element, since the look-ahead recognizes its first attribute. And a plain element doesn't affect
    // where such an element starts: quotes have no meaning in it, and any `<` that isn't escaped interrupts
    // it.
    for (;;) {
        const std::size_t start = FindSheetStart(m_text, m_position);
        if (start == NotFound)
            return false;
        const bool isNotEscaped = IsNotEscapedAt<u'<'>(m_text, m_position, start);
        m_position = start + 1;
        if (isNotEscaped && ReadElementAt(start, element))
            return true;
    }
}

/// Returns whether a valid sheet element starts at the `<` at `start`, which the element's name follows.
/// Advances the walk. Tries the fast path first; this is the only place that falls back to the general path.
bool SheetElementWalk::ReadElementAt(std::size_t start, SheetElement& element)
{
    const std::size_t afterName = start + 1 + VizInTooltip::Impl::SheetMarkupElementLiteral.size();
    const std::size_t end = ReadCanonicalElement(m_text, afterName, element.Values);
    if (end != NotFound) {
        m_position = end + 1;
        element.Content = TextView(m_text.data() + start + 1, end - start - 1);
        return AreValid(element.Values);
    }

    if (!StartsSheetElement(m_text, start + 1))
        return false;
    const ElementBounds bounds = FindEndOfElement(m_text, start, start + 1, true);
    m_position = bounds.Found() ? bounds.End + 1 : m_text.size();
    return bounds.Found() && ReadSheetElement(bounds.ContentIn(m_text), element);
}

} // namespace corvanemarkup::Internal
