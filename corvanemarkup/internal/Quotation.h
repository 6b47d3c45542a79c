#pragma once

#include <corvanemarkup/internal/TextView.h>

#include <string>

namespace corvanemarkup::Internal {

/// Returns the text in single quotes for a message: shortened to about 40 code units, with control characters
/// and line separators as spaces.
[[nodiscard]] std::u16string Quoted(TextView text);

} // namespace corvanemarkup::Internal
