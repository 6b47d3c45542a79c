#pragma once

/// Searching a text for delimiters, which is what scanning spends its time on.

#include <corvanemarkup/TextView.h>
#include <corvanemarkup/UnitBlock.h>

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
        return ((block == Units) | ...);
    };
    const std::size_t lastBlock = end - UnitBlock::Length;
    for (; from <= lastBlock; from += UnitBlock::Length)
        if (const UnitMask mask = matches(from))
            return from + FirstIn(mask);
    if (from >= end)
        return NotFound;
    // What remains is the end of a block that overlaps the one before it.
    const UnitMask mask = matches(lastBlock) >> (from - lastBlock);
    return mask != 0 ? from + FirstIn(mask) : NotFound;
}

/// The first position at or after `from` that holds `First` with `Second` behind it, or `NotFound`.
template <char16_t First, char16_t Second>
[[nodiscard]] std::size_t FindPair(TextView text, std::size_t from)
{
    const char16_t* const units = text.data();
    const std::size_t end = text.size();
    while (from < end && end - from > UnitBlock::Length) {
        const UnitBlock block(units + from);
        // What stands behind the last place is looked at apart.
        const UnitMask beforeSecond = (block == Second) >> 1 | UnitMask(1) << (UnitBlock::Length - 1);
        const UnitMask mask = (block == First) & beforeSecond;
        if (mask == 0) {
            from += UnitBlock::Length;
            continue;
        }
        const std::size_t found = from + FirstIn(mask);
        if (units[found + 1] == Second)
            return found;
        from = found + 1;
    }
    for (; from < end && end - from > 1; ++from)
        if (units[from] == First && units[from + 1] == Second)
            return from;
    return NotFound;
}

/// The first delimiter at or after `from` that isn't escaped by doubling, or `NotFound`. `findDelimiter`
/// gives the first delimiter at or after a position, escaped or not.
///
/// A run of one delimiter is read in pairs from where the search meets it. A pair that ends the text ends the
/// search; a single delimiter in the last place counts.
template <typename FindDelimiter>
[[nodiscard]] std::size_t FindNotEscaped(TextView text, std::size_t from, FindDelimiter findDelimiter)
{
    for (;;) {
        const std::size_t found = findDelimiter(text, from);
        if (found == NotFound || found + 1 == text.size() || text[found] != text[found + 1])
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

} // namespace corvanemarkup::Internal
