#pragma once

/// Reads the tokens of an element's content as views.

#include <corvanemarkup/TokenKind.h>
#include <corvanemarkup/internal/TextView.h>

#include <vector>

namespace corvanemarkup::Internal {

struct TokenView
{
    TokenKind Kind;
    TextView Text;
};

/// Reads tokens one by one. All calls together take time linear in the content.
class TokenReader
{
public:
    explicit TokenReader(TextView text);

    /// Sets `token` to the next token; returns false at the end of the text and on failure.
    bool Next(TokenView& token);
    /// Returns whether the text can't be tokenized. Final only after `Next` has returned false.
    [[nodiscard]] bool Failed() const { return m_failed; }
    /// Returns the attribute with unterminated quotes, up to the end of the text, once `Next` has failed at
    /// it; otherwise an empty text.
    [[nodiscard]] TextView UnterminatedAttribute() const
    {
        return m_failed && m_nameRead ? m_text.substr(m_position) : TextView();
    }

private:
    [[nodiscard]] std::size_t FindEndOfAttribute() const;

    TextView m_text;
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

[[nodiscard]] TokenViews ReadTokens(TextView text);

} // namespace corvanemarkup::Internal
