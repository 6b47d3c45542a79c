#include <corvanemarkup/internal/MarkupWriter.h>

#include <algorithm>
#include <climits>
#include <stdexcept>

namespace corvanemarkup::Internal {

std::uint64_t EscapedLength(TextView value)
{
    const auto quotes = std::count(value.begin(), value.end(), u'"');
    return value.size() + static_cast<std::uint64_t>(quotes);
}

std::uint64_t CanonicalLength(TextView name, TextView value)
{
    constexpr std::size_t equalsAndQuotes = 3;
    return name.size() + equalsAndQuotes + EscapedLength(value);
}

void AppendEscaped(TextView value, std::u16string& text)
{
    for (;;) {
        const std::size_t quote = value.find(u'"');
        text.append(value.substr(0, quote));
        if (quote == NotFound)
            return;
        text.append(u"\"\"");
        value.remove_prefix(quote + 1);
    }
}

void AppendCanonical(TextView name, TextView value, std::u16string& text)
{
    text.append(name).append(u"=\"");
    AppendEscaped(value, text);
    text += u'"';
}

void CheckTextLength(std::uint64_t length)
{
    if (length > INT_MAX)
        throw std::length_error("corvanemarkup: a text longer than INT_MAX code units");
}

std::u16string TextWithRoomFor(std::uint64_t length)
{
    CheckTextLength(length);
    std::u16string text;
    text.reserve(static_cast<std::size_t>(length));
    return text;
}

} // namespace corvanemarkup::Internal
