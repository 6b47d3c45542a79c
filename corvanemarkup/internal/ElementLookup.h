#pragma once

/// Finds elements from any offset of a text in linear time overall.

#include <corvanemarkup/internal/MarkupScanner.h>
#include <corvanemarkup/internal/TextView.h>

#include <cstdint>
#include <vector>

namespace corvanemarkup::Internal {

/// Returns what `FindElement` returns, for a sequence of offsets that never decrease. All calls together take
/// time linear in the text.
class ElementLookup
{
public:
    explicit ElementLookup(TextView text) : m_text(text) {}

    /// Returns bounds that are not `Found()` if there is no element.
    [[nodiscard]] ElementBounds FindFrom(std::size_t offset);

private:
    /// The result of a search from any offset after the previous `<`, up to and including this one.
    struct Answer
    {
        std::int32_t Delimiter; ///< the position of this `<`
        std::int32_t Start;     ///< of the element, or -1
        std::int32_t End;
    };

    void AnswerAllFrom(std::size_t offset);

    TextView m_text;
    std::size_t m_next = 0;        ///< the end of the last element found by scanning forward
    bool m_isAnswered = false;     ///< whether `m_answers` has been computed
    std::vector<Answer> m_answers; ///< in reverse text order
};

} // namespace corvanemarkup::Internal
