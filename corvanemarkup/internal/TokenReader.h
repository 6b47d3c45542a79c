#pragma once

/// Reading the tokens of an element's content on views of it.

#include <corvanemarkup/TokenKind.h>
#include <corvanemarkup/internal/TextView.h>

#include <vector>

namespace corvanemarkup::Internal {

struct TokenView
{
    TokenKind Kind;
    TextView Text;
};

/// Reads the tokens one after the other, in time linear in the content, and copies nothing.
class TokenReader
{
public:
    explicit TokenReader(TextView text);

    /// Sets `token` to the next token; false at the end of the text, and at a failure.
    bool Next(TokenView& token);
    /// Whether the text doesn't tokenize. Certain only when `Next` has returned false.
    [[nodiscard]] bool Failed() const { return m_failed; }
    /// The attribute whose quotes are open, up to the end of the text, once `Next` has failed at it;
    /// otherwise empty.
    [[nodiscard]] TextView OpenAttribute() const
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

/// `TokenizeResult` on a view of the text.
struct TokenViews
{
    bool Success;
    std::vector<TokenView> Tokens;
};

[[nodiscard]] TokenViews ReadTokens(TextView text);

} // namespace corvanemarkup::Internal
