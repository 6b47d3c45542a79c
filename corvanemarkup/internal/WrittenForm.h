#pragma once

/// The fast way to read what the library itself has written. Each function returns true if it succeeded. If
/// it returns false, nothing is known: the general way decides, and what the function has set so far means
/// nothing.

#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/SheetAttributeValues.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Reads a sheet element in one go, from after its name at `position` up to its `>`, whose position it gives;
/// `NotFound` if it fails. The element may have any number of spaces, and its attributes in any order.
[[nodiscard]] std::size_t ReadWrittenElement(TextView text, std::size_t position,
                                             SheetAttributeValues& values);

/// Reads a field of a filter value, with the comma in front of it if there is one at `position`.
[[nodiscard]] inline bool ReadWrittenField(TextView filterValue, std::size_t position, ElementBounds& field)
{
    if (position < filterValue.size() && filterValue[position] == u',')
        ++position;
    if (position >= filterValue.size() || filterValue[position] != u'<')
        return false;
    field = {position, FindFirstOf<u'<', u'>'>(filterValue, position + 1)};
    return field.Found() && filterValue[field.End] == u'>' && !IsDoubled(filterValue, field.End) &&
           !HasElementNameAt(filterValue, position + 1);
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
