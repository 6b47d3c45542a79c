#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/ElementLookup.h>
#include <corvanemarkup/internal/SheetMarkupLookAhead.h>

namespace corvanemarkup::Internal {

ElementBounds ElementLookup::FindFrom(std::size_t offset)
{
    // A walk that keeps every element reads on from the end of each. Only when it finds nothing, or goes back
    // into an element, are the answers for all offsets worth their while.
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

/// What a scan that stands at some position comes to.
struct Outcome
{
    std::int32_t Start = -1; ///< where the element restarts last, or -1 if it doesn't
    std::int32_t End = -1;   ///< the position of its `>`, or -1 if it has no end

    /// The same outcome, told from the `<` at `position`: an element that doesn't restart later starts there.
    [[nodiscard]] Outcome SeenFromBracket(std::int32_t position) const
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

void ElementLookup::AnswerAllFrom(std::size_t offset)
{
    Outcomes next;     // one position to the right; at the end of the text nothing is found
    Outcomes overNext; // two positions to the right: where the scan goes on after a doubled delimiter
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
