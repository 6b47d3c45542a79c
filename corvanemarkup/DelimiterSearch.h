#pragma once

/// Searching a text for delimiters, which is what scanning spends its time on.

#include <corvanemarkup/TextView.h>

#include <cstdint>

namespace corvanemarkup::Internal {

/// The first position at or after `from` that holds one of `Units`, or `NotFound`.
template <char16_t... Units>
[[nodiscard]] std::size_t FindFirstOf(TextView text, std::size_t from)
{
    // Ordinary text is passed over in blocks: with an accumulator of the width of a code unit, compilers turn
    // the inner loop into a few vector instructions.
    constexpr std::size_t BlockLength = 32;
    const char16_t* const units = text.data();
    const std::size_t size = text.size();
    for (; from < size && size - from >= BlockLength; from += BlockLength) {
        std::uint16_t hit = 0;
        for (std::size_t i = 0; i < BlockLength; ++i) {
            const char16_t unit = units[from + i];
            hit = static_cast<std::uint16_t>(hit | -static_cast<int>(((unit == Units) || ...)));
        }
        if (hit != 0)
            break;
    }
    for (; from < size; ++from) {
        const char16_t unit = units[from];
        if (((unit == Units) || ...))
            return from;
    }
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
