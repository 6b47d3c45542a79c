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
/// REQUIRES: the four units up to the end of the value can be read, as they can where a name and a `=` stand
/// in front of it.
[[nodiscard]] inline bool ReadWrittenNumber(TextView escapedValue, int& number)
{
    if (escapedValue.empty() || escapedValue.size() > UnitsInWord || escapedValue.front() == u'0')
        return false;
    // How many digits there are can't be foreseen, so that no branch depends on it: always four units are
    // taken, and those in front of the value become zeros.
    constexpr std::uint64_t ofEachUnit = 0x0001000100010001;
    const std::size_t bitsInFront = 16 * (UnitsInWord - escapedValue.size());
    const std::uint64_t word = WordAt(escapedValue.data() + escapedValue.size() - UnitsInWord);
    const std::uint64_t digits = (word ^ u'0' * ofEachUnit) >> bitsInFront << bitsInFront;
    // What is added takes anything beyond 9 to the highest bit.
    const std::uint64_t highestBits = (digits | (digits + 0x7FF6 * ofEachUnit)) & 0x8000 * ofEachUnit;
    // The highest unit of the product is the sum of the digits, each times its 1000, 100, 10 or 1.
    number = static_cast<int>(digits * 0x03E8'0064'000A'0001 >> 48);
    return highestBits == 0;
}

} // namespace corvanemarkup::Internal
