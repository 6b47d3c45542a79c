#pragma once

/// Splits the content of one element into its name, runs of spaces, and attributes:
///
///     Sheet name="a b"  filter="<x>"
///     EEEEEWAAAAAAAAAAWWAAAAAAAAAAAA      E: element name, W: white space, A: attribute

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvanemarkup/TokenKind.h>
#include <corvaneplatform/TString.h>

#include <vector>

namespace corvanemarkup {

struct Token
{
    TokenKind Kind;
    TString Text; ///< the source text, including quotes and doubled quotes
};

/// All tokens of an element's content, or a failure.
struct TokenizeResult
{
    bool Success;
    /// In text order; empty on failure. On success, there are at least an `ElementName` and a `Whitespace`
    /// token, and the texts of all tokens make up the input.
    std::vector<Token> Tokens;
};

/// Returns the tokens of an element's content. Fails if there is no space, or if quotes are unterminated; a
/// doubled quote isn't a closing quote. Attributes aren't validated: one may lack an `=` or quotes.
[[nodiscard]] CORVANEMARKUP_EXPORT TokenizeResult TokenizeAttributedMarkupText(const MarkupText& text);

} // namespace corvanemarkup
