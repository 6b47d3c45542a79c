#include <corvanemarkup/DelimiterSearch.h>
#include <corvanemarkup/MarkupScanner.h>
#include <corvanemarkup/SheetMarkupReader.h>

namespace corvanemarkup::Internal {

ElementBounds FindEndOfElement(TextView text, std::size_t start, std::size_t from, bool isSheetMarkup)
{
    for (;;) {
        const std::size_t delimiter = isSheetMarkup ? FindNotEscaped<u'<', u'>', u'"'>(text, from)
                                                    : FindNotEscaped<u'<', u'>'>(text, from);
        if (delimiter == NotFound)
            return {};
        if (text[delimiter] == u'>')
            return {start, delimiter};
        from = delimiter + 1;
        if (text[delimiter] == u'<') {
            start = delimiter;
            // Once in a sheet element, quotes protect brackets whatever the element restarts as.
            isSheetMarkup = isSheetMarkup || IsSheetMarkup(text, from);
        } else {
            const std::size_t closingQuote = FindNotEscaped<u'"'>(text, from);
            if (closingQuote == NotFound)
                return {};
            from = closingQuote + 1;
        }
    }
}

ElementBounds FindElement(TextView text, std::size_t offset)
{
    const std::size_t start = FindNotEscaped<u'<'>(text, offset);
    if (start == NotFound)
        return {};
    return FindEndOfElement(text, start, start + 1, IsSheetMarkup(text, start + 1));
}

ElementBounds ElementLookup::FindFrom(std::size_t offset)
{
    // A walk that keeps every element reads on from the end of each. Only when it finds nothing, or goes back
    // behind the start of an element, are the answers for all offsets worth their while.
    if (m_next != NotFound && offset >= m_next) {
        const ElementBounds element = FindElement(m_text, offset);
        if (element.Found()) {
            m_next = element.End + 1;
            return element;
        }
    }
    if (m_next != NotFound) {
        AnswerFrom(offset);
        m_next = NotFound;
    }
    while (!m_answers.empty() && static_cast<std::size_t>(m_answers.back().Delimiter) < offset)
        m_answers.pop_back();
    if (m_answers.empty())
        return {};
    const Answer& answer = m_answers.back();
    return {FromOffset(answer.Start), FromOffset(answer.End)};
}

namespace {

/// What a scan that stands at some position comes to.
struct Outcome
{
    std::int32_t Start = -1; ///< where the element restarts last, or -1 if it doesn't
    std::int32_t End = -1;   ///< the position of its `>`, or -1 if it has no end

    /// The outcome for the `<` at `position` from the one behind it.
    [[nodiscard]] Outcome From(std::int32_t position) const
    {
        return End >= 0 && Start < 0 ? Outcome{position, End} : *this;
    }
};

/// The outcomes at one position, for each state that a scan can be in. They depend on nothing else, which is
/// why one pass from the right to the left answers for all positions.
struct Outcomes
{
    Outcome Outside; ///< looking for the start of an element
    Outcome Plain;   ///< in an element without protecting quotes
    Outcome Sheet;   ///< in one with protecting quotes, outside of them
    Outcome Quoted;  ///< between the quotes
};

} // namespace

void ElementLookup::AnswerFrom(std::size_t offset)
{
    Outcomes next;     // one position to the right; at the end of the text nothing is found
    Outcomes overNext; // two positions to the right: where the scan goes on behind a doubled delimiter
    for (std::size_t i = m_text.size(); i-- > offset;) {
        const char16_t unit = m_text[i];
        const bool isDoubled = i + 1 < m_text.size() && m_text[i + 1] == unit;
        const auto position = static_cast<std::int32_t>(i);
        Outcomes here = next;
        if (unit == u'<') {
            if (isDoubled) {
                here.Outside = overNext.Outside;
                here.Plain = overNext.Plain;
                here.Sheet = overNext.Sheet;
            } else {
                here.Plain = (IsSheetMarkup(m_text, i + 1) ? next.Sheet : next.Plain).From(position);
                here.Outside = here.Plain;
                here.Sheet = next.Sheet.From(position);
            }
            m_answers.push_back({position, here.Outside.Start, here.Outside.End});
        } else if (unit == u'>') {
            here.Plain = isDoubled ? overNext.Plain : Outcome{-1, position};
            here.Sheet = isDoubled ? overNext.Sheet : Outcome{-1, position};
        } else if (unit == u'"') {
            here.Sheet = isDoubled ? overNext.Sheet : next.Quoted;
            here.Quoted = isDoubled ? overNext.Quoted : next.Sheet;
        }
        overNext = next;
        next = here;
    }
}

} // namespace corvanemarkup::Internal
