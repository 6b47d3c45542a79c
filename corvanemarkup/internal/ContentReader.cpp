#include <corvanemarkup/internal/ContentReader.h>

#include <algorithm>

namespace corvanemarkup::Internal {

AttributeParts SplitIntoParts(TextView attribute, bool isUnterminated)
{
    const std::size_t equals = std::min(FindFirstOf<u'='>(attribute, 0), attribute.size());
    TextView value = attribute.substr(std::min(equals + 1, attribute.size()));
    if (!value.empty() && value.front() == u'"')
        value.remove_prefix(1);
    if (!isUnterminated && !value.empty() && value.back() == u'"')
        value.remove_suffix(1);
    return {attribute, attribute.substr(0, equals), value, !isUnterminated && SplitAttribute(attribute)};
}

bool ContentReader::Next(AttributeParts& parts)
{
    for (TokenView token; m_tokens.Next(token);) {
        if (token.Kind == TokenKind::Attribute) {
            parts = SplitIntoParts(token.Text, false);
            return true;
        }
    }
    const TextView open = m_isFinished ? TextView() : m_tokens.UnterminatedAttribute();
    m_isFinished = true;
    if (open.empty())
        return false;
    parts = SplitIntoParts(open, true);
    return true;
}

} // namespace corvanemarkup::Internal
