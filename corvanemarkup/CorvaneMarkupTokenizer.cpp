#include <corvanemarkup/CorvaneMarkupTokenizer.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/internal/Check.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/MarkupScanner.h>

#include <bitset>

namespace corvanemarkup {

using namespace Internal;

int CorvaneMarkupTokenizer::FindNextMarkupElement(int offset)
{
    const ElementBounds element = FindElement(ViewOf(m_text), FromOffset(offset));
    m_offset = ToOffset(element.End);
    if (element.Start == NotFound) // no `<`, which leaves the start as it was
        return -1;
    m_tokenStart = element.Found() ? ToOffset(element.Start) : -1;
    return m_tokenStart;
}

TString CorvaneMarkupTokenizer::GetContentOfCurrentMarkupElement() const
{
    CORVANEMARKUP_CHECK("corvanemarkup/CorvaneMarkupTokenizer", m_offset >= 0);
    return m_text.Mid(m_tokenStart + 1, m_offset - m_tokenStart - 1);
}

bool CorvaneMarkupTokenizer::IsTextAtOffsetSheetMarkup(int offset) const
{
    return VizInTooltip::Impl::IsSheetMarkupText(m_text, offset);
}

void CorvaneMarkupTokenizer::FindOneOfNotEscaped(const TString& delimiters)
{
    std::bitset<0x10000> isDelimiter;
    for (const char16_t unit : ViewOf(delimiters))
        isDelimiter.set(unit);
    const auto findDelimiter = [&isDelimiter](TextView text, std::size_t from) {
        while (from < text.size() && !isDelimiter[text[from]])
            ++from;
        return from < text.size() ? from : NotFound;
    };
    m_offset = ToOffset(FindNotEscaped(ViewOf(m_text), FromOffset(m_offset), findDelimiter));
}

void CorvaneMarkupTokenizer::FindStartOfToken()
{
    m_offset = ToOffset(FindNotEscaped<u'<'>(ViewOf(m_text), FromOffset(m_offset)));
    if (m_offset >= 0)
        m_tokenStart = m_offset;
}

void CorvaneMarkupTokenizer::FindEndOfTokenAndUpdateStartIfNeeded(bool isSheetMarkup)
{
    const ElementBounds element =
        FindEndOfElement(ViewOf(m_text), FromOffset(m_tokenStart), FromOffset(m_offset) + 1, isSheetMarkup);
    m_offset = ToOffset(element.End);
    m_tokenStart = element.Found() ? ToOffset(element.Start) : -1;
}

} // namespace corvanemarkup
