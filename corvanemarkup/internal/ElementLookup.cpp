#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/ElementLookup.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::Internal {

ElementBounds ElementLookup::FindFrom(std::size_t offset)
{
    // A walk that accepts every element continues at the end of each: scanning forward is linear. The answers
    // for all offsets are needed only once it finds nothing, or re-enters an element.
    if (!m_isAnswered && offset >= m_next) {
        const ElementBounds element = FindElement(m_text, offset);
        if (element.Found()) {
            m_next = element.End + 1;
            return element;
        }
    }
    if (!m_isAnswered) {
        AnswerAllFrom(offset);
        m_isAnswered = true;
    }
    while (!m_answers.empty() && static_cast<std::size_t>(m_answers.back().Delimiter) < offset)
        m_answers.pop_back();
    if (m_answers.empty())
        return {};
    const Answer& answer = m_answers.back();
    return {FromOffset(answer.Start), FromOffset(answer.End)};
}

namespace {

/// The result of a scan from some position.
struct Outcome
{
    std::int32_t Start = -1; ///< the last `<` that interrupts an element, or -1 if none does
    std::int32_t End = -1;   ///< the position of the `>`, or -1 if the element is unterminated

    /// Returns the result of a scan from the `<` at `position`: an element that isn't interrupted later
    /// starts there.
    [[nodiscard]] Outcome SeenFromBracket(std::int32_t position) const
    {
        return End >= 0 && Start < 0 ? Outcome{position, End} : *this;
    }
};

/// The outcomes at one position, for each state of a scan. They depend only on the outcomes further right:
/// one pass from right to left computes them for all positions.
struct Outcomes
{
    Outcome Outside; ///< searching for the start of an element
    Outcome Plain;   ///< in an element whose quotes don't protect brackets
    Outcome Sheet;   ///< in an element whose quotes do, outside quotes
    Outcome Quoted;  ///< in such an element, inside quotes
};

} // namespace

void ElementLookup::AnswerAllFrom(std::size_t offset)
{
    Outcomes next;     // one position to the right; nothing is found at the end of the text
    Outcomes overNext; // two positions to the right, where the scan continues after a doubled delimiter
    for (std::size_t i = m_text.size(); i-- > offset;) {
        const char16_t unit = m_text[i];
        const bool isDoubled = IsDoubled(m_text, i);
        const auto position = static_cast<std::int32_t>(i);
        Outcomes here = next;
        if (unit == u'<') {
            if (isDoubled) {
                here.Outside = overNext.Outside;
                here.Plain = overNext.Plain;
                here.Sheet = overNext.Sheet;
            } else {
                const bool isSheet = StartsSheetElement(m_text, i + 1);
                here.Plain = (isSheet ? next.Sheet : next.Plain).SeenFromBracket(position);
                here.Outside = here.Plain;
                here.Sheet = next.Sheet.SeenFromBracket(position);
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
