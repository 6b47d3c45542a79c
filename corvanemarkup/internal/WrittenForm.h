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
///
/// The text goes on for three units or more before the value, as it does where a name stands there. So all
/// digits are read at once, however many they are.
[[nodiscard]] inline bool ReadWrittenNumber(TextView escapedValue, int& number)
{
    const std::size_t digitCount = escapedValue.size();
    if (digitCount == 0 || digitCount > UnitsInWord || escapedValue.front() == u'0')
        return false;
    constexpr auto fourTimes = [](std::uint64_t unit) { return unit * 0x0001000100010001; };
    constexpr unsigned bitsInUnit = 16;
    const std::uint64_t word = WordAt(escapedValue.data() + digitCount - UnitsInWord);
    const std::uint64_t digits =
        (word ^ fourTimes(u'0')) & (~std::uint64_t(0) << (UnitsInWord - digitCount) * bitsInUnit);
    // What isn't from 0 to 9 has the highest bit of its unit set, or gets it by the addition.
    if (((digits + fourTimes(0x7FFF - 9)) | digits) & fourTimes(0x8000))
        return false;
    // The highest unit of the product adds up the digits times 1000, 100, 10 and 1.
    constexpr std::uint64_t tens = std::uint64_t(1000) << 48 | std::uint64_t(100) << 32 | 10 << 16 | 1;
    number = static_cast<int>((digits * tens) >> 48);
    return true;
}

} // namespace corvanemarkup::Internal
