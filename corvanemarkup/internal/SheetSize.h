#pragma once

/// Reads and validates the size of a sheet.

#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/CanonicalForm.h>
#include <corvanemarkup/internal/ContentReader.h>

namespace corvanemarkup::Internal {

/// Returns whether `maxwidth` and `maxheight` may have these values.
[[nodiscard]] constexpr bool IsValidSheetSize(TSize size)
{
    return size.width >= 1 && size.width <= VizInTooltip::LargestMaxSize.width && size.height >= 1 &&
           size.height <= VizInTooltip::LargestMaxSize.height;
}

/// Returns the number in the value of a `maxwidth` or `maxheight`; 0 if it isn't a number. Tries the fast
/// path, whose requirement on `rawValue` must hold, and falls back to the general path.
[[nodiscard]] inline int ReadSheetLength(TextView rawValue)
{
    int number = 0;
    return ReadCanonicalNumber(rawValue, number) ? number : Unescape(rawValue).toInt(nullptr, 10);
}

} // namespace corvanemarkup::Internal
