#pragma once

#include <corvaneplatform/TSize.h>

namespace corvanemarkup::Internal {

constexpr int LargestSheetWidth = 2000;
constexpr int LargestSheetHeight = 1500;

[[nodiscard]] constexpr bool IsValidSheetSize(TSize size)
{
    return size.width >= 1 && size.width <= LargestSheetWidth && size.height >= 1 &&
           size.height <= LargestSheetHeight;
}

} // namespace corvanemarkup::Internal
