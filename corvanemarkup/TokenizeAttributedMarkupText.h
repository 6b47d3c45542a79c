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

/// A part of an element's content.
struct Token
{
    TokenKind Kind;
    TString Text; ///< as it stands in the input, quotes and doubled quotes included
};

/// All tokens of an element's content, if it could be read.
struct TokenizeResult
{
    bool Success;
    /// In text order; empty without success. There is at least an `ElementName` and a `Whitespace` token, and
    /// all texts joined give the input.
    std::vector<Token> Tokens;
};

/// The tokens of an element's content. Fails on a text without a space, and on one with quotes that aren't
/// closed; a doubled quote doesn't close. Attribute tokens aren't judged: one may lack a `=` or quotes.
[[nodiscard]] CORVANEMARKUP_EXPORT TokenizeResult TokenizeAttributedMarkupText(const MarkupText& text);

} // namespace corvanemarkup
