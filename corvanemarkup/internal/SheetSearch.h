#pragma once

/// Searches a text for starts of sheet elements.

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Returns the first position at or after `from` of a `<` that is followed by the name of a sheet element and
/// a space; or `NotFound`. The `<` may be escaped.
[[nodiscard]] std::size_t FindSheetStart(TextView text, std::size_t from);

} // namespace corvanemarkup::Internal
