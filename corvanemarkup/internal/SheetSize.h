#pragma once

#include <corvanemarkup/SheetMarkupFormat.h>

namespace corvanemarkup::Internal {

/// Whether a sheet may be as large as that at most.
[[nodiscard]] constexpr bool IsValidSheetSize(TSize size)
{
    return size.width >= 1 && size.width <= VizInTooltip::LargestMaxSize.width && size.height >= 1 &&
           size.height <= VizInTooltip::LargestMaxSize.height;
}

} // namespace corvanemarkup::Internal
