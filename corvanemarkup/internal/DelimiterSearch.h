#pragma once

/// Searches a text for delimiters, where scanning spends its time, and defines which are escaped by doubling.

#include <corvanemarkup/internal/TextView.h>
#include <corvanemarkup/internal/UnitBlock.h>

namespace corvanemarkup::Internal {

/// Returns the position of the first of `Units` at or after `from`, or `NotFound`.
template <char16_t... Units>
[[nodiscard]] std::size_t FindFirstOf(TextView text, std::size_t from)
{
    static_assert(((Units > 0 && Units < 0x80) && ...), "blocks compare with ASCII only, except U+0000");
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
    // The remaining units are the end of a block that overlaps the previous one.
    const UnitMask mask = After(matches(lastBlock), from - lastBlock);
    return mask != 0 ? from + FirstIn(mask) : NotFound;
}

/// Returns whether the delimiter at `position` is doubled: it and the next one are a pair, which is escaped
/// and delimits nothing. Only meaningful for a position that a search reaches, as a search reads a run of the
/// same delimiter in pairs, from where it reaches the run.
[[nodiscard]] inline bool IsDoubled(TextView text, std::size_t position)
{
    return position + 1 < text.size() && text[position + 1] == text[position];
}

/// Returns the position of the first delimiter at or after `from` that isn't escaped, or `NotFound`.
/// `findDelimiter` returns the first delimiter at or after a position, escaped or not.
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

/// Returns the position of the first of `Units` at or after `from` that isn't escaped, or `NotFound`.
template <char16_t... Units>
[[nodiscard]] std::size_t FindNotEscaped(TextView text, std::size_t from)
{
    return FindNotEscaped(text, from, FindFirstOf<Units...>);
}

/// Returns whether a search for `Unit` from `from` stops at `last`, the end of a run of `Unit`, rather than
/// skipping it as the second of a pair.
template <char16_t Unit>
[[nodiscard]] bool IsNotEscapedAt(TextView text, std::size_t from, std::size_t last)
{
    std::size_t first = last;
    while (first > from && text[first - 1] == Unit)
        --first;
    return first == last || FindNotEscaped<Unit>(text.substr(0, last + 1), first) == last;
}

} // namespace corvanemarkup::Internal
