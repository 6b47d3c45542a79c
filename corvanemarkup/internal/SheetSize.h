#pragma once

#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/WrittenForm.h>

namespace corvanemarkup::Internal {

/// Whether a sheet may be as large as that at most.
[[nodiscard]] constexpr bool IsValidSheetSize(TSize size)
{
    return size.width >= 1 && size.width <= VizInTooltip::LargestMaxSize.width && size.height >= 1 &&
           size.height <= VizInTooltip::LargestMaxSize.height;
}

/// The number that the value of a `maxwidth` or `maxheight` stands for. The value must stand after its name
/// in a text, as `ReadWrittenNumber` asks. That is the fast way; here is where the general way takes over.
[[nodiscard]] inline int ReadSheetLength(TextView escapedValue)
{
    int number = 0;
    return ReadWrittenNumber(escapedValue, number) ? number : Unescape(escapedValue).toInt(nullptr, 10);
}

} // namespace corvanemarkup::Internal
