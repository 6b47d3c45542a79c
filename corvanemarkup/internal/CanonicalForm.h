#pragma once

/// The fast path, which reads elements and values in nearly canonical form. If a function fails or stops,
/// nothing is known about the rest, and its output for that is unspecified: the caller must use the general
/// path.

#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/SheetAttributeValues.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Reads a sheet element from `position`, just after its name, and returns the position of its `>`;
/// `NotFound` if it fails. Accepts any number of spaces between attributes, and attributes in any order.
[[nodiscard]] std::size_t ReadCanonicalElement(TextView text, std::size_t position,
                                               SheetAttributeValues& values);

/// Calls `visit` with the content of each field at the start of a filter value, as long as only single commas
/// separate fields, and fields contain no delimiter or quote. Returns where the rest starts. `filterValue`
/// may be raw or unescaped.
template <typename Visit>
[[nodiscard]] std::size_t ReadCanonicalFields(TextView filterValue, Visit visit)
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

/// Reads a number of up to four digits without a leading 0, which has the same meaning on every platform.
/// REQUIRES: the four units before the end of the value can be read. They can if a name and a `=` precede it.
[[nodiscard]] inline bool ReadCanonicalNumber(TextView rawValue, int& number)
{
    if (rawValue.empty() || rawValue.size() > UnitsInWord || rawValue.front() == u'0')
        return false;
    // The number of digits is unpredictable, so no branch depends on it: four units are always loaded, and
    // those before the value become zeros.
    constexpr std::uint64_t ofEachUnit = 0x0001000100010001;
    const std::size_t bitsInFront = 16 * (UnitsInWord - rawValue.size());
    const std::uint64_t word = WordAt(rawValue.data() + rawValue.size() - UnitsInWord);
    const std::uint64_t digits = (word ^ u'0' * ofEachUnit) >> bitsInFront << bitsInFront;
    // The addition carries anything greater than 9 into the highest bit.
    const std::uint64_t highestBits = (digits | (digits + 0x7FF6 * ofEachUnit)) & 0x8000 * ofEachUnit;
    // The highest unit of the product is the sum of the digits, multiplied by 1000, 100, 10 and 1.
    number = static_cast<int>(digits * 0x03E8'0064'000A'0001 >> 48);
    return highestBits == 0;
}

} // namespace corvanemarkup::Internal
