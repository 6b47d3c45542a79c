#pragma once

#include <cstdint>

namespace corvanemarkup {

/// What a token of an element's content is; see `TokenizeAttributedMarkupText`.
enum class TokenKind : std::int32_t {
    ElementName = 0, ///< everything before the first space; may be empty
    Whitespace = 1,  ///< a run of spaces (U+0020 alone) that is as long as it can be
    /// A stretch that isn't empty, up to a space or through the closing quote of its first quotes.
    Attribute = 2
};

} // namespace corvanemarkup
