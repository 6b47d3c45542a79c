#pragma once

/// Splits the content of one element into its name, runs of spaces, and attribute tokens:
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
    TString Text; ///< as it stands in the input, quotes and doubled quotes included
};

struct TokenizeResult
{
    bool Success;
    /// In text order. On success at least an `ElementName` and a `Whitespace` token, and all texts joined
    /// give the input; otherwise empty.
    std::vector<Token> Tokens;
};

/// Fails on a text without a space, and on one with quotes that aren't closed; a doubled quote doesn't close.
/// Whether an attribute token is well formed isn't judged: it may lack a `=` or quotes.
[[nodiscard]] CORVANEMARKUP_EXPORT TokenizeResult TokenizeAttributedMarkupText(const MarkupText& text);

} // namespace corvanemarkup
