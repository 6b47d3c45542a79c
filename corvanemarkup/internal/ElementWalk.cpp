#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::Internal {

bool ElementWalk::Next(WalkedElement& element)
{
    const std::size_t start = m_wasInterrupted ? m_position : FindNotEscaped<u'<'>(m_text, m_position);
    if (start == NotFound)
        return false;

    using Ending = WalkedElement::Ending;
    const std::size_t contentStart = start + 1;
    element.InheritsProtection = m_wasInterrupted && m_quotesProtect;
    m_quotesProtect = element.InheritsProtection || StartsSheetElement(m_text, contentStart);
    const ElementStop stop = FindStop(m_text, contentStart, m_quotesProtect);
    const bool isStopped = stop.Position != NotFound;
    m_wasInterrupted = isStopped && m_text[stop.Position] == u'<';
    const std::size_t contentEnd = isStopped ? stop.Position : m_text.size();
    m_position = isStopped && !m_wasInterrupted ? contentEnd + 1 : contentEnd;

    element.Whole = m_text.substr(start, m_position - start);
    element.Content = m_text.substr(contentStart, contentEnd - contentStart);
    if (isStopped)
        element.EndsWith = m_wasInterrupted ? Ending::Interrupted : Ending::Bracket;
    else
        element.EndsWith = stop.IsInQuotes ? Ending::UnterminatedInQuotes : Ending::Unterminated;
    return true;
}

} // namespace corvanemarkup::Internal
