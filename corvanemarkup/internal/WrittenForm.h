#pragma once

/// The fast way to read what the library itself has written. Where a function fails or stops, nothing is
/// known: the general way decides, and what the function has set for what it failed at means nothing.

#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/SheetAttributeValues.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Reads a sheet element in one go, from after its name at `position` up to its `>`, whose position it gives;
/// `NotFound` if it fails. The element may have any number of spaces, and its attributes in any order.
[[nodiscard]] std::size_t ReadWrittenElement(TextView text, std::size_t position,
                                             SheetAttributeValues& values);

/// Calls `visit` with the content of each field at the start of a filter value, as long as commas alone stand
/// between them and no delimiter or quote in them. Gives where the rest starts. It makes no difference
/// whether the quotes in the value are doubled.
template <typename Visit>
[[nodiscard]] std::size_t ReadWrittenFields(TextView filterValue, Visit visit)
{
    std::size_t position = 0;
    while (position < filterValue.size() && filterValue[position] == u'<') {
        const std::size_t end = FindFirstOf<u'<', u'>', u'"'>(filterValue, position + 1);
        if (end == NotFound || filterValue[end] != u'>')
            break;
        const bool isLast = end + 1 == filterValue.size();
        if (!isLast && filterValue[end + 1] != u',')
            break;
        visit(filterValue.substr(position + 1, end - position - 1));
        position = isLast ? filterValue.size() : end + 2;
    }
    return position;
}

/// Reads a number of up to four digits without a 0 in front, which means the same on every platform.
[[nodiscard]] inline bool ReadWrittenNumber(TextView escapedValue, int& number)
{
    constexpr std::size_t mostDigits = 4;
    if (escapedValue.empty() || escapedValue.size() > mostDigits || escapedValue.front() == u'0')
        return false;
    number = 0;
    for (const char16_t digit : escapedValue) {
        if (digit < u'0' || digit > u'9')
            return false;
        number = 10 * number + (digit - u'0');
    }
    return true;
}

} // namespace corvanemarkup::Internal
