#pragma once

/// The kinds of tokens of an element's content.

#include <cstdint>

namespace corvanemarkup {

/// The kind of a token that `TokenizeAttributedMarkupText` returns.
enum class TokenKind : std::int32_t {
    ElementName = 0, ///< everything before the first space; may be empty
    Whitespace = 1,  ///< a maximal run of U+0020
    /// Never empty. Ends at the next space or the end of the text; if a quote comes first, after the closing
    /// quote.
    Attribute = 2
};

} // namespace corvanemarkup
