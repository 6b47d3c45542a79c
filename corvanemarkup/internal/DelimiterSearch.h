#pragma once

/// Searching a text for delimiters, which is what scanning spends its time on, and the rule of doubled ones.

#include <corvanemarkup/internal/TextView.h>
#include <corvanemarkup/internal/UnitBlock.h>

namespace corvanemarkup::Internal {

/// The first position at or after `from` that holds one of `Units`, or `NotFound`.
template <char16_t... Units>
[[nodiscard]] std::size_t FindFirstOf(TextView text, std::size_t from)
{
    static_assert(((Units > 0 && Units < 0x80) && ...), "what blocks can be compared with");
    const char16_t* const units = text.data();
    const std::size_t end = text.size();
    if (end < UnitBlock::Length) {
        for (; from < end; ++from)
            if (((units[from] == Units) || ...))
                return from;
        return NotFound;
    }
    const auto matches = [units](std::size_t at) {
        const UnitBlock block(units + at);
        return (block.MaskOf(Units) | ...);
    };
    const std::size_t lastBlock = end - UnitBlock::Length;
    for (; from <= lastBlock; from += UnitBlock::Length)
        if (const UnitMask mask = matches(from))
            return from + FirstIn(mask);
    if (from >= end)
        return NotFound;
    // What remains is the end of a block that overlaps the one before it.
    const UnitMask mask = After(matches(lastBlock), from - lastBlock);
    return mask != 0 ? from + FirstIn(mask) : NotFound;
}

/// The rule of doubled delimiters: whether the delimiter at `position` and the one after it are a pair, which
/// is escaped and delimits nothing. It holds for a `position` that a search meets: such a search reads a run
/// of one delimiter in pairs, from where it comes to it.
[[nodiscard]] inline bool IsDoubled(TextView text, std::size_t position)
{
    return position + 1 < text.size() && text[position + 1] == text[position];
}

/// The first delimiter at or after `from` that isn't escaped by doubling, or `NotFound`. `findDelimiter`
/// gives the first delimiter at or after a position, escaped or not.
template <typename FindDelimiter>
[[nodiscard]] std::size_t FindNotEscaped(TextView text, std::size_t from, FindDelimiter findDelimiter)
{
    for (;;) {
        const std::size_t found = findDelimiter(text, from);
        if (found == NotFound || !IsDoubled(text, found))
            return found;
        from = found + 2;
    }
}

/// The first of `Units` at or after `from` that isn't escaped by doubling, or `NotFound`.
template <char16_t... Units>
[[nodiscard]] std::size_t FindNotEscaped(TextView text, std::size_t from)
{
    return FindNotEscaped(text, from, FindFirstOf<Units...>);
}

/// Whether a search for `Unit` from `from` on stops at `last`, the last place of a run of it, rather than
/// passing over it as the second of a pair.
template <char16_t Unit>
[[nodiscard]] bool IsNotEscapedAt(TextView text, std::size_t from, std::size_t last)
{
    std::size_t first = last;
    while (first > from && text[first - 1] == Unit)
        --first;
    return first == last || FindNotEscaped<Unit>(text.substr(0, last + 1), first) == last;
}

} // namespace corvanemarkup::Internal
