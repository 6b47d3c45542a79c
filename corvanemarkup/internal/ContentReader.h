#pragma once

/// Reads an element's content: its tokens and, even if `VizInTooltipProperties::FromMarkupText` rejects it,
/// its attributes.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/TokenKind.h>
#include <corvanemarkup/internal/TextView.h>

#include <string>
#include <vector>

namespace corvanemarkup::Internal {

/// Appends the unescaped value, with doubled quotes made single.
void AppendUnescaped(TextView rawValue, std::u16string& value);
/// Returns the unescaped value. Doesn't search for quotes unless `mayHoldQuotes`.
[[nodiscard]] TString Unescape(TextView rawValue, bool mayHoldQuotes = true);

/// Returns whether the texts are equal as attribute names. Requires that the platform's case folding doesn't
/// make texts of different lengths equal.
[[nodiscard]] bool AreSameAttributeName(TextView left, TextView right);

/// An attribute, as views of the source text.
struct AttributeParts
{
    TextView Whole;
    TextView Name;       ///< up to the first `=`; the whole attribute if there is none
    TextView RawValue;   ///< the rest without its quotes; empty, at the end, if there is no `=`
    bool IsNameAndValue; ///< whether it consists of a name and a quoted value

    [[nodiscard]] AttributeNameAndValue ToNameAndValue() const;
};

/// Splits an attribute, whose quotes may be unterminated, at its first `=`.
[[nodiscard]] AttributeParts SplitAttribute(TextView attribute, bool isUnterminated = false);

struct TokenView
{
    TokenKind Kind;
    TextView Text;
};

/// Reads tokens or attributes one by one. All calls together take time linear in the content.
class ContentReader
{
public:
    explicit ContentReader(TextView content);

    /// Sets `token` to the next token; returns false at the end of the content and on failure.
    bool Next(TokenView& token);
    /// Sets `attribute` to the next attribute; returns false at the end. An attribute with unterminated
    /// quotes is the last one and extends to the end. A content without a space has no attributes.
    bool Next(AttributeParts& attribute);
    /// Returns whether the content can't be tokenized. Final only after `Next` has returned false.
    [[nodiscard]] bool Failed() const { return m_failed; }

private:
    [[nodiscard]] std::size_t FindEndOfAttribute() const;

    TextView m_content;
    std::size_t m_position = 0;
    std::size_t m_nameEnd;
    bool m_nameRead = false;
    bool m_failed;
};

/// `TokenizeResult` as views.
struct TokenViews
{
    bool Success;
    std::vector<TokenView> Tokens;
};

[[nodiscard]] TokenViews ReadTokens(TextView content);

} // namespace corvanemarkup::Internal
