#pragma once

/// The elements of a text as they are found from each of its offsets.

#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/TextView.h>

#include <cstdint>
#include <vector>

namespace corvanemarkup::Internal {

/// Tells for each offset of a text which element `FindElement` finds from there, for offsets that never fall,
/// in time linear in the text for all of them together.
class ElementLookup
{
public:
    explicit ElementLookup(TextView text) : m_text(text) {}

    /// The element; if there is none, what isn't `Found()`.
    [[nodiscard]] ElementBounds FindFrom(std::size_t offset);

private:
    /// What a search finds that begins after the `<` before this one, up to and including this one.
    struct Answer
    {
        std::int32_t Delimiter; ///< the position of this `<`
        std::int32_t Start;     ///< of the element, or -1
        std::int32_t End;
    };

    void AnswerAllFrom(std::size_t offset);

    TextView m_text;
    std::size_t m_next = 0;        ///< where the walk goes on after the element found last
    bool m_isAnswered = false;     ///< whether the answers are at hand
    std::vector<Answer> m_answers; ///< the last one stands for the first `<`
};

} // namespace corvanemarkup::Internal
