#include <corvanemarkup/DelimiterSearch.h>
#include <corvanemarkup/MarkupScanner.h>
#include <corvanemarkup/SheetElement.h>
#include <corvanemarkup/SheetMarkupConstants.h>
#include <corvanemarkup/SheetMarkupReader.h>
#include <corvanemarkup/SheetSize.h>
#include <corvanemarkup/TokenReader.h>

#include <algorithm>
#include <cstring>
#include <numeric>

namespace corvanemarkup::Internal {

namespace Names = VizInTooltip::Impl::SheetMarkupAttributeNames;

namespace {

/// The attributes of an element as they are met, judged as `VizInTooltipProperties::IsValid` judges them.
struct SheetAttributes
{
    boost::optional<TextView> Name;
    boost::optional<TextView> Filter;
    boost::optional<TextView> MaxWidth;
    boost::optional<TextView> MaxHeight;

    /// The place for the value of the attribute with that name; null if it isn't allowed, or has a value
    /// already.
    boost::optional<TextView>* PlaceFor(TextView name)
    {
        boost::optional<TextView>* place = nullptr;
        if (IsAttributeName(name, Names::Name))
            place = &Name;
        else if (IsAttributeName(name, Names::Filter))
            place = &Filter;
        else if (IsAttributeName(name, Names::MaxWidth))
            place = &MaxWidth;
        else if (IsAttributeName(name, Names::MaxHeight))
            place = &MaxHeight;
        return place != nullptr && !*place ? place : nullptr;
    }

    [[nodiscard]] bool AreValid() const
    {
        const TSize defaultSize = VizInTooltip::DefaultMaxSize;
        return Name && !Name->empty() &&
               IsValidSheetSize(
                   TSize(NumberOr(MaxWidth, defaultSize.width), NumberOr(MaxHeight, defaultSize.height)));
    }

private:
    static int NumberOr(const boost::optional<TextView>& escapedValue, int defaultNumber)
    {
        if (!escapedValue)
            return defaultNumber;
        // Plain digits mean the same on every platform, so that the usual case needs no copy.
        const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
        if (escapedValue->empty() || escapedValue->size() > 4 || escapedValue->front() == u'0' ||
            !std::all_of(escapedValue->begin(), escapedValue->end(), isDigit))
            return Unescape(*escapedValue).toInt(nullptr, 10);
        return std::accumulate(escapedValue->begin(), escapedValue->end(), 0,
                               [](int number, char16_t digit) { return 10 * number + (digit - u'0'); });
    }
};

} // namespace

boost::optional<SheetElement> ReadValidSheetElement(TextView content)
{
    TokenReader reader(content);
    TokenView token;
    if (!reader.Next(token) || token.Text != ViewOf(VizInTooltip::Impl::SheetMarkupElementName))
        return boost::none;

    SheetAttributes attributes;
    while (reader.Next(token)) {
        if (token.Kind != TokenKind::Attribute)
            continue;
        const auto attribute = SplitAttribute(token.Text);
        boost::optional<TextView>* const place = attribute ? attributes.PlaceFor(attribute->Name) : nullptr;
        if (place == nullptr)
            return boost::none;
        *place = attribute->EscapedValue;
    }
    if (reader.Failed() || !attributes.AreValid())
        return boost::none;
    return SheetElement{content, *attributes.Name, attributes.Filter};
}

bool SheetElementWalk::Next(SheetElement& element)
{
    // A valid sheet element is always found in a state in which quotes protect, since its first attribute is
    // one that the look-ahead asks for. And a plain element never changes where such a state begins: quotes
    // mean nothing in it, and it restarts at each `<` that isn't escaped. So whether a plain element is open
    // needn't be known, nor where it ends.
    for (;;) {
        const std::size_t start = FindPair<u'<', u'S'>(m_text, m_position);
        if (start == NotFound)
            break;
        const bool isEscaped = IsEscaped(start);
        m_position = start + 1;
        std::size_t position = m_position;
        if (isEscaped || !Skip(u"Sheet ", position))
            continue;
        if (ReadRegular(start, element))
            return true;
        if (!IsSheetMarkup(m_text, start + 1))
            continue;
        const ElementBounds bounds = FindEndOfElement(m_text, start, start + 1, true);
        if (!bounds.Found())
            break;
        m_position = bounds.End + 1;
        if (const auto valid = ReadValidSheetElement(bounds.ContentIn(m_text))) {
            element = *valid;
            return true;
        }
    }
    m_position = m_text.size();
    return false;
}

/// Whether the last `<` of a run, at `last`, is the second of a pair.
bool SheetElementWalk::IsEscaped(std::size_t last) const
{
    std::size_t first = last;
    while (first > m_position && m_text[first - 1] == u'<')
        --first;
    return (last - first) % 2 != 0;
}

/// Reads the element at `start` in one go if it is valid and written as the library writes it, but for the
/// number of spaces and the order of attributes. Otherwise returns false, and says nothing about the element.
bool SheetElementWalk::ReadRegular(std::size_t start, SheetElement& element)
{
    std::size_t position = start + std::size(u"<Sheet") - 1;
    SheetAttributes attributes;
    while (Skip(u" ", position)) {
        while (Skip(u" ", position)) {
        }
        boost::optional<TextView>* value = nullptr;
        if (Skip(u"name=\"", position))
            value = &attributes.Name;
        else if (Skip(u"maxwidth=\"", position))
            value = &attributes.MaxWidth;
        else if (Skip(u"maxheight=\"", position))
            value = &attributes.MaxHeight;
        else if (Skip(u"filter=\"", position))
            value = &attributes.Filter;
        else
            break;
        const std::size_t closingQuote = FindNotEscaped<u'"'>(m_text, position);
        if (closingQuote == NotFound || *value)
            return false;
        *value = m_text.substr(position, closingQuote - position);
        position = closingQuote + 1;
    }

    const std::size_t end = position;
    if (!Skip(u">", position) || Skip(u">", position) || !attributes.AreValid())
        return false;
    element = {m_text.substr(start + 1, end - start - 1), *attributes.Name, attributes.Filter};
    m_position = position;
    return true;
}

/// Moves `position` behind `literal` if that stands there.
template <std::size_t size>
bool SheetElementWalk::Skip(const char16_t (&literal)[size], std::size_t& position) const
{
    constexpr std::size_t length = size - 1;
    if (m_text.size() - position < length ||
        std::memcmp(m_text.data() + position, literal, length * sizeof(char16_t)) != 0)
        return false;
    position += length;
    return true;
}

} // namespace corvanemarkup::Internal
