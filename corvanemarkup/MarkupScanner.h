#pragma once

/// Finding elements in a view of a tooltip text.

#include <corvanemarkup/TextView.h>

#include <cstdint>
#include <vector>

namespace corvanemarkup::Internal {

/// An element: the positions of its `<` and of its `>`. Both are `NotFound` if there is none.
struct ElementBounds
{
    std::size_t Start = NotFound;
    std::size_t End = NotFound;

    [[nodiscard]] bool Found() const { return End != NotFound; }
    [[nodiscard]] bool operator==(const ElementBounds& other) const
    {
        return Start == other.Start && End == other.End;
    }
    [[nodiscard]] TextView ContentIn(TextView text) const { return text.substr(Start + 1, End - Start - 1); }
};

/// The element that begins with the `<` at `start`, or the one that it restarts as at a later `<`. `from` is
/// where the search for its end begins, and `isSheetMarkup` tells whether quotes protect brackets until it
/// restarts.
[[nodiscard]] ElementBounds FindEndOfElement(TextView text, std::size_t start, std::size_t from,
                                             bool isSheetMarkup);

/// The first element that starts at or after `offset`.
[[nodiscard]] ElementBounds FindElement(TextView text, std::size_t offset);

/// Tells for each offset of a text which element `FindElement` finds from there, for offsets that never fall,
/// in time linear in the text for all of them together.
class ElementLookup
{
public:
    explicit ElementLookup(TextView text) : m_text(text) {}

    [[nodiscard]] ElementBounds FindFrom(std::size_t offset);

private:
    /// What a search finds that begins behind the `<` before this one, up to and including this one.
    struct Answer
    {
        std::int32_t Delimiter; ///< the position of this `<`
        std::int32_t Start;     ///< of the element, or -1
        std::int32_t End;
    };

    void AnswerFrom(std::size_t offset);

    TextView m_text;
    /// Behind the element found last; `NotFound` once all answers are at hand.
    std::size_t m_next = 0;
    std::vector<Answer> m_answers; ///< the last one stands for the first `<`
};

/// The element that starts at `offset`, if it is written as fields usually are: nothing doubled, and nothing
/// that could make it a sheet element. Says nothing about other elements.
[[nodiscard]] inline ElementBounds FindFieldAt(TextView text, std::size_t offset)
{
    if (text[offset] != u'<' || offset + 1 == text.size() || text[offset + 1] == u'S')
        return {};
    std::size_t end = offset + 1;
    while (end < text.size() && text[end] != u'<' && text[end] != u'>')
        ++end;
    const bool isEnd =
        end < text.size() && text[end] == u'>' && (end + 1 == text.size() || text[end + 1] != u'>');
    return isEnd ? ElementBounds{offset, end} : ElementBounds{};
}

/// Calls `visit` with each element that `FindCharRangesOfKnownMarkupElements` finds when all are known.
template <typename Visit>
void ForEachElement(TextView text, Visit visit)
{
    ElementLookup elements(text);
    for (std::size_t offset = 0; offset < text.size();) {
        if (text[offset] == u',') { // as between the fields of a filter value
            ++offset;
            continue;
        }
        ElementBounds element = FindFieldAt(text, offset);
        if (!element.Found())
            element = elements.FindFrom(offset);
        if (element.Found())
            visit(element);
        offset = element.Found() ? element.End + 1 : offset + 1;
    }
}

} // namespace corvanemarkup::Internal
