#include "Positions.h"

#include "TooltipText.h"

#include <boost/locale/utf.hpp>

#include <algorithm>
#include <iterator>
#ifdef TOOLTIP_REPORT_UTF8PROC
#include <utf8proc.h>
#endif

namespace tooltipreport {

namespace {

namespace utf = boost::locale::utf;

constexpr int interval = 256;

/// Returns the position after the code unit at `position`.
LineAndColumn After(LineAndColumn position, char16_t unit)
{
    if (unit == u'\n')
        return {position.Line + 1, 1};
    // Both halves of a surrogate pair are one character.
    return {position.Line, position.Column + (utf::utf_traits<char16_t>::is_trail(unit) ? 0 : 1)};
}

/// Returns the character's width in columns of a terminal.
std::size_t ColumnsOf([[maybe_unused]] char32_t character)
{
#ifdef TOOLTIP_REPORT_UTF8PROC
    return static_cast<std::size_t>(utf8proc_charwidth(static_cast<utf8proc_int32_t>(character)));
#else
    return 1;
#endif
}

} // namespace

std::string ToText(LineAndColumn position)
{
    return std::to_string(position.Line) + ':' + std::to_string(position.Column);
}

Positions::Positions(const TString& text) : m_text(text)
{
    LineAndColumn position{1, 1};
    for (int offset = 0; offset <= text.length(); ++offset) {
        if (offset % interval == 0)
            m_marks.push_back(position);
        position = After(position, text[offset]);
    }
}

LineAndColumn Positions::At(std::int64_t offset) const
{
    const auto mark = static_cast<int>(offset / interval);
    LineAndColumn position = m_marks[static_cast<std::size_t>(mark)];
    for (int i = mark * interval; i < offset; ++i)
        position = After(position, m_text[i]);
    return position;
}

boost::optional<int> Positions::OffsetOf(LineAndColumn position) const
{
    const auto isBefore = [](LineAndColumn left, LineAndColumn right) {
        return left.Line != right.Line ? left.Line < right.Line : left.Column < right.Column;
    };
    // The first mark is 1:1, and no position comes before it.
    const auto mark = std::upper_bound(m_marks.begin() + 1, m_marks.end(), position, isBefore) - 1;
    LineAndColumn reached = *mark;
    auto offset = static_cast<int>(mark - m_marks.begin()) * interval;
    for (; isBefore(reached, position) && offset < m_text.length(); ++offset)
        reached = After(reached, m_text[offset]);
    if (reached.Line != position.Line || reached.Column != position.Column)
        return boost::none;
    return offset;
}

RuledLine RuleLine(const TString& text, corvanemarkup::CorvaneCharRange range)
{
    constexpr int longestLine = 140;
    constexpr int longestLead = 60;
    const auto start = static_cast<int>(range.start);
    int to = start;
    while (to < text.length() && text[to] != u'\n' && to - start <= longestLine)
        ++to;
    if (to > start && text[to - 1] == u'\r')
        --to;
    const auto startOfLine = [&](int limit) {
        int from = start;
        while (from > limit && from > 0 && text[from - 1] != u'\n')
            --from;
        return from - (utf::utf_traits<char16_t>::is_trail(text[from]) ? 1 : 0);
    };
    int from = startOfLine(to - longestLine);
    if (from > 0 && text[from - 1] != u'\n')
        from = startOfLine(start - longestLead);
    const bool isLeadCut = from > 0 && text[from - 1] != u'\n';
    const bool isEndCut = to - from > longestLine;
    to = isEndCut ? from + longestLine : to;

    RuledLine ruled{isLeadCut ? "…" : "", isLeadCut ? " " : ""};
    const char16_t* const units = text.constData();
    for (const char16_t* unit = units + from; unit < units + to;) {
        const bool isInRange = unit - units >= range.start && unit - units < range.end;
        const char32_t symbol = Symbol(utf::utf_traits<char16_t>::decode(unit, units + text.length()));
        utf::utf_traits<char>::encode(symbol, std::back_inserter(ruled.Line));
        const std::size_t width = ColumnsOf(symbol);
        if (isInRange)
            ruled.Ruler.append(width, '^');
        else if (unit - units <= range.start)
            ruled.Ruler.append(width, ' ');
    }
    ruled.Line += isEndCut ? "…" : "";
    if (ruled.Ruler.empty() || ruled.Ruler.back() != '^')
        ruled.Ruler += '^';
    return ruled;
}

} // namespace tooltipreport
