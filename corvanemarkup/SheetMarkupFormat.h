#pragma once

/// The names of the sheet element and its attributes, and the limits of its size:
///
///     <Sheet name="Sales" maxwidth="300" maxheight="300" filter="<Region>,<Year>">
///
/// The only place that defines them. All are initialized statically.

#include <corvaneplatform/TSize.h>

#include <cstddef>
#include <iterator>
#include <string_view>

namespace corvanemarkup::VizInTooltip {

/// The maximum size of a sheet whose element doesn't specify it, in units of the host.
const TSize DefaultMaxSize{300, 300};

/// The largest valid values of `maxwidth` and `maxheight`. The smallest is 1.
const TSize LargestMaxSize{2000, 1500};

namespace Impl {

/// The name of a sheet element, which is case-sensitive. The names of its attributes are not.
constexpr std::u16string_view SheetMarkupElementLiteral = u"Sheet";

/// The attributes of a sheet element, in the order of `VizInTooltipProperties::GetDefault`.
enum class SheetMarkupAttribute : std::size_t { Name, MaxWidth, MaxHeight, Filter };

/// Their names, in the same order.
constexpr std::u16string_view SheetMarkupAttributeLiterals[] = {u"name", u"maxwidth", u"maxheight",
                                                                u"filter"};

static_assert(std::size(SheetMarkupAttributeLiterals) ==
                  static_cast<std::size_t>(SheetMarkupAttribute::Filter) + 1,
              "each attribute has a name, and the last one is named here");

/// Stands for the fields of a sheet element without a filter.
constexpr std::u16string_view AllFieldsLiteral = u"All Fields";

/// Returns the name of an attribute.
[[nodiscard]] constexpr std::u16string_view LiteralOf(SheetMarkupAttribute attribute)
{
    return SheetMarkupAttributeLiterals[static_cast<std::size_t>(attribute)];
}

} // namespace Impl

} // namespace corvanemarkup::VizInTooltip
