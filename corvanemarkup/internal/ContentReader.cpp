#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>

#include <algorithm>

namespace corvanemarkup::Internal {

void AppendUnescaped(TextView rawValue, std::u16string& value)
{
    value.reserve(value.size() + rawValue.size());
    std::size_t copied = 0;
    for (std::size_t quote = FindFirstOf<u'"'>(rawValue, 0); quote != NotFound;
         quote = FindFirstOf<u'"'>(rawValue, copied)) {
        value.append(rawValue, copied, quote + 1 - copied);
        copied = quote + (IsDoubled(rawValue, quote) ? 2 : 1);
    }
    value.append(rawValue, copied, NotFound);
}

TString Unescape(TextView rawValue, bool mayHoldQuotes)
{
    if (!mayHoldQuotes || FindFirstOf<u'"'>(rawValue, 0) == NotFound)
        return ToString(rawValue);
    std::u16string value;
    AppendUnescaped(rawValue, value);
    return ToString(value);
}

bool AreSameAttributeName(TextView left, TextView right)
{
    // Identical texts are equal under any case folding. The usual case needs no copy.
    return left.size() == right.size() &&
           (AreSame(left, right) || AttributeName(ToString(left)) == AttributeName(ToString(right)));
}

AttributeNameAndValue AttributeParts::ToNameAndValue() const
{
    return {AttributeName(ToString(Name)), Unescape(RawValue)};
}

AttributeParts SplitAttribute(TextView attribute, bool isUnterminated)
{
    const std::size_t equals = std::min(FindFirstOf<u'='>(attribute, 0), attribute.size());
    TextView value = attribute.substr(std::min(equals + 1, attribute.size()));
    const bool isOpened = !value.empty() && value.front() == u'"';
    if (isOpened)
        value.remove_prefix(1);
    const bool isClosed = !isUnterminated && !value.empty() && value.back() == u'"';
    if (isClosed)
        value.remove_suffix(1);
    return {attribute, attribute.substr(0, equals), value, isOpened && isClosed};
}

ContentReader::ContentReader(TextView content)
    : m_content(content), m_nameEnd(FindFirstOf<u' '>(content, 0)), m_failed(m_nameEnd == NotFound)
{
}

bool ContentReader::Next(TokenView& token)
{
    if (m_failed || m_position == m_content.size())
        return false;

    TokenKind kind = TokenKind::ElementName;
    std::size_t end = m_nameEnd;
    if (!m_nameRead)
        m_nameRead = true;
    else if (m_content[m_position] == u' ') {
        kind = TokenKind::Whitespace;
        end = std::min(m_content.find_first_not_of(u' ', m_position), m_content.size());
    } else {
        kind = TokenKind::Attribute;
        end = FindEndOfAttribute();
        m_failed = end == NotFound;
        if (m_failed)
            return false;
    }
    token = {kind, m_content.substr(m_position, end - m_position)};
    m_position = end;
    return true;
}

bool ContentReader::Next(AttributeParts& attribute)
{
    if (m_failed)
        return false;
    TokenView token{};
    while (Next(token))
        if (token.Kind == TokenKind::Attribute) {
            attribute = SplitAttribute(token.Text);
            return true;
        }
    if (m_failed)
        attribute = SplitAttribute(m_content.substr(m_position), true);
    return m_failed;
}

/// Returns the end of the attribute: after its closing quote or, if there is no quote before it, at the next
/// space or the end of the text. `NotFound` if the quotes are unterminated.
std::size_t ContentReader::FindEndOfAttribute() const
{
    const std::size_t end = FindFirstOf<u' ', u'"'>(m_content, m_position);
    if (end == NotFound)
        return m_content.size();
    if (m_content[end] == u' ')
        return end;
    const std::size_t closingQuote = FindNotEscaped<u'"'>(m_content, end + 1);
    return closingQuote == NotFound ? NotFound : closingQuote + 1;
}

TokenViews ReadTokens(TextView content)
{
    ContentReader reader(content);
    TokenViews result{true, {}};
    for (TokenView token; reader.Next(token);)
        result.Tokens.push_back(token);
    if (reader.Failed())
        result = {false, {}};
    return result;
}

} // namespace corvanemarkup::Internal
