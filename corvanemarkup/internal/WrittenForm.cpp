#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/WrittenForm.h>

#include <utility>

namespace corvanemarkup::Internal {

using namespace VizInTooltip::Impl;

namespace {

/// Moves `position` past `literal` if that stands there.
inline bool Skip(TextView text, TextView literal, std::size_t& position)
{
    if (!StandsAt(text, position, literal))
        return false;
    position += literal.size();
    return true;
}

inline bool SkipNameOf(TextView text, SheetMarkupAttribute attribute, std::size_t& position)
{
    std::size_t end = position;
    if (!Skip(text, LiteralOf(attribute), end) || !Skip(text, u"=\"", end))
        return false;
    position = end;
    return true;
}

/// Moves `position` past one of the names, with its `=` and the opening quote, and tells which it was.
template <std::size_t... indices>
inline bool SkipName(TextView text, std::size_t& position, SheetMarkupAttribute& attribute,
                     std::index_sequence<indices...>)
{
    return ((attribute = SheetMarkupAttribute(indices),
             SkipNameOf(text, SheetMarkupAttribute(indices), position)) ||
            ...);
}

} // namespace

bool ReadWrittenElement(TextView text, std::size_t position, SheetAttributeValues& values, std::size_t& end)
{
    using Indices = std::make_index_sequence<std::size(SheetMarkupAttributeLiterals)>;
    bool hasAttributes = false;
    while (Skip(text, u" ", position)) {
        while (Skip(text, u" ", position)) {
        }
        SheetMarkupAttribute attribute{};
        if (!SkipName(text, position, attribute, Indices()))
            break;
        const std::size_t closingQuote = FindNotEscaped<u'"'>(text, position);
        if (closingQuote == NotFound || values.Has(attribute))
            return false;
        values[attribute] = text.substr(position, closingQuote - position);
        position = closingQuote + 1;
        hasAttributes = true;
    }
    end = position;
    return hasAttributes && end < text.size() && text[end] == u'>' && !IsDoubled(text, end);
}

} // namespace corvanemarkup::Internal
