#pragma once

/// Searching a text for sheet elements by what each of them starts with.

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// The first position at or after `from` where a `<` stands, the name of a sheet element after it and a space
/// after that; or `NotFound`.
[[nodiscard]] std::size_t FindSheetStart(TextView text, std::size_t from);

} // namespace corvanemarkup::Internal
