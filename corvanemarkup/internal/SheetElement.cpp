#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/SheetElement.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/SheetSearch.h>
#include <corvanemarkup/internal/SheetSize.h>
#include <corvanemarkup/internal/TokenReader.h>
#include <corvanemarkup/internal/WrittenForm.h>

namespace corvanemarkup::Internal {

using VizInTooltip::Impl::SheetMarkupAttribute;

namespace {

int NumberOr(const SheetAttributeValues& values, SheetMarkupAttribute attribute, int defaultNumber)
{
    return values.Has(attribute) ? ReadSheetLength(values[attribute]) : defaultNumber;
}

/// Whether an element with these attributes, none of which occurs twice, is valid as
/// `VizInTooltipProperties::IsValid` judges.
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
        element.Values[*allowed] = attribute->EscapedValue;
    }
    return !reader.Failed() && AreValid(element.Values);
}

bool SheetElementWalk::Next(SheetElement& element)
{
    // A valid sheet element is always found in a state in which quotes protect, since its first attribute is
    // one that the look-ahead asks for. And a plain element never changes where such a state begins: quotes
    // mean nothing in it, and it restarts at each `<` that isn't escaped. So whether a plain element is open
    // needn't be known, nor where it ends.
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

/// Whether the `<` at `start`, with the element name after it, starts a valid sheet element. Moves to where
/// the walk goes on. The fast way comes first; here is where the general way takes over.
bool SheetElementWalk::ReadElementAt(std::size_t start, SheetElement& element)
{
    const std::size_t afterName = start + 1 + VizInTooltip::Impl::SheetMarkupElementLiteral.size();
    const std::size_t end = ReadWrittenElement(m_text, afterName, element.Values);
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
