#pragma once

/// The kinds of tokens, apart from what makes tokens.

#include <cstdint>

namespace corvanemarkup {

/// What a token of an element's content is; see `TokenizeAttributedMarkupText`.
enum class TokenKind : std::int32_t {
    ElementName = 0, ///< everything before the first space; may be empty
    Whitespace = 1,  ///< a run of spaces, U+0020 alone, as long as it can be
    /// A stretch that isn't empty: up to the next space if no quote comes first, else through the quote that
    /// closes.
    Attribute = 2
};

} // namespace corvanemarkup
