#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/TokenReader.h>

#include <algorithm>

namespace corvanemarkup::Internal {

TokenReader::TokenReader(TextView text)
    : m_text(text), m_nameEnd(FindFirstOf<u' '>(text, 0)), m_failed(m_nameEnd == NotFound)
{
}

bool TokenReader::Next(TokenView& token)
{
    if (m_failed || m_position == m_text.size())
        return false;

    TokenKind kind = TokenKind::ElementName;
    std::size_t end = m_nameEnd;
    if (!m_nameRead)
        m_nameRead = true;
    else if (m_text[m_position] == u' ') {
        kind = TokenKind::Whitespace;
        end = std::min(m_text.find_first_not_of(u' ', m_position), m_text.size());
    } else {
        kind = TokenKind::Attribute;
        end = FindEndOfAttribute();
        m_failed = end == NotFound;
        if (m_failed)
            return false;
    }
    token = {kind, m_text.substr(m_position, end - m_position)};
    m_position = end;
    return true;
}

/// Returns the end of the attribute: after its closing quote or, if there is no quote before it, at the next
/// space or the end of the text. `NotFound` if the quotes are unterminated.
std::size_t TokenReader::FindEndOfAttribute() const
{
    const std::size_t end = FindFirstOf<u' ', u'"'>(m_text, m_position);
    if (end == NotFound)
        return m_text.size();
    if (m_text[end] == u' ')
        return end;
    const std::size_t closingQuote = FindNotEscaped<u'"'>(m_text, end + 1);
    return closingQuote == NotFound ? NotFound : closingQuote + 1;
}

TokenViews ReadTokens(TextView text)
{
    TokenReader reader(text);
    TokenViews result{true, {}};
    for (TokenView token; reader.Next(token);)
        result.Tokens.push_back(token);
    if (reader.Failed())
        result = {false, {}};
    return result;
}

} // namespace corvanemarkup::Internal
