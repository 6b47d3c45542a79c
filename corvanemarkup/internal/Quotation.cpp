#include <corvanemarkup/internal/Quotation.h>

namespace corvanemarkup::Internal {

namespace {

bool IsControl(char16_t unit)
{
    return unit < u' ' || (unit >= 0x7F && unit < 0xA0) || unit == 0x2028 || unit == 0x2029;
}

} // namespace

std::u16string Quoted(TextView text)
{
    constexpr std::size_t most = 40;
    const bool isLong = text.size() > most;
    std::size_t length = isLong ? most - 1 : text.size();
    if (isLong && text[length - 1] >= 0xD800 && text[length - 1] < 0xDC00)
        --length; // not half of a pair
    std::u16string quoted = u"'";
    for (const char16_t unit : text.substr(0, length))
        quoted += IsControl(unit) ? u' ' : unit;
    return quoted + (isLong ? u"\u2026'" : u"'");
}

} // namespace corvanemarkup::Internal
