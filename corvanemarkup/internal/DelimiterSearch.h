#pragma once

/// Searching a text for delimiters, which is what scanning spends its time on, and the rule of doubled ones.

#include <corvanemarkup/internal/TextView.h>
#include <corvanemarkup/internal/UnitBlock.h>

#include <algorithm>

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

/// The first position at or after `from` where `First`, `Second` and `Third` follow one another, or
/// `NotFound`.
template <char16_t First, char16_t Second, char16_t Third>
[[nodiscard]] std::size_t FindThree(TextView text, std::size_t from)
{
    const std::size_t begin = from;
    const auto standAt = [=](std::size_t position) {
        return position >= begin && position < text.size() && text.size() - position > 2 &&
               text[position] == First && text[position + 1] == Second && text[position + 2] == Third;
    };
#if defined(CORVANEMARKUP_SSE2_BLOCKS)
    // Only every second unit is compared, together with its neighbour: where the three begin at an even place
    // of a block the first two of them are met, and where they begin at an odd one the last two.
    if (text.size() >= WideUnitBlock::Length) {
        const std::size_t lastBlock = text.size() - WideUnitBlock::Length;
        for (std::size_t block = from; from < text.size(); from = block + WideUnitBlock::Length) {
            block = std::min(from, lastBlock);
            std::uint64_t mask = WideUnitBlock(text.data() + block).MaskOfTwos(First, Second, Third);
            for (; mask != 0; mask &= mask - 1) {
                const std::size_t place = block + LowestBit(mask);
                const std::size_t position = text[place] == Second ? place - 1 : place;
                if (standAt(position))
                    return position;
            }
        }
        return NotFound;
    }
#endif
    for (from = FindFirstOf<First>(text, from); from != NotFound; from = FindFirstOf<First>(text, from + 1))
        if (standAt(from))
            return from;
    return NotFound;
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
