#pragma once

/// What a sheet element is called, what its attributes are called, and how large a sheet may be:
///
///     <Sheet name="Sales" maxwidth="300" maxheight="300" filter="<Region>,<Year>">
///
/// All that reads or writes sheet elements takes these from here. They are there before any code runs.

#include <corvaneplatform/TSize.h>

#include <cstddef>
#include <iterator>
#include <string_view>

namespace corvanemarkup::VizInTooltip {

/// The largest size of a sheet whose element doesn't tell it, in the host's units.
const TSize DefaultMaxSize{300, 300};

/// The largest values that `maxwidth` and `maxheight` may have. The smallest is 1.
const TSize LargestMaxSize{2000, 1500};

namespace Impl {

/// What a sheet element is called, in these letters alone. The letter case of its attributes doesn't count.
constexpr std::u16string_view SheetMarkupElementLiteral = u"Sheet";

/// The attributes that a sheet element may have, in the order in which the library writes them.
enum class SheetMarkupAttribute : std::size_t { Name, MaxWidth, MaxHeight, Filter };

/// What they are called, in the same order.
constexpr std::u16string_view SheetMarkupAttributeLiterals[] = {u"name", u"maxwidth", u"maxheight",
                                                                u"filter"};

static_assert(std::size(SheetMarkupAttributeLiterals) ==
                  static_cast<std::size_t>(SheetMarkupAttribute::Filter) + 1,
              "each attribute is called something");

/// What that attribute is called.
[[nodiscard]] constexpr std::u16string_view LiteralOf(SheetMarkupAttribute attribute)
{
    return SheetMarkupAttributeLiterals[static_cast<std::size_t>(attribute)];
}

} // namespace Impl

} // namespace corvanemarkup::VizInTooltip
