#pragma once

/// The fast way to read what the library itself has written. Each function returns true if it succeeded. If
/// it returns false, nothing is known: the general way decides, and what the function has set so far means
/// nothing.

#include <corvanemarkup/internal/SheetAttributeValues.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Reads a sheet element in one go, from after its name at `position` up to its `>` at `end`. It may have any
/// number of spaces, and its attributes in any order.
[[nodiscard]] bool ReadWrittenElement(TextView text, std::size_t position, SheetAttributeValues& values,
                                      std::size_t& end);

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
