#pragma once

/// Finds elements in a view of a tooltip text.

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// The bounds of an element, or how far the search for one got.
struct ElementBounds
{
    /// The position of its `<`: the last one, if elements were interrupted. `NotFound` if there is no `<`.
    std::size_t Start = NotFound;
    /// The position of its `>`. `NotFound` if there is no element, or if it is unterminated.
    std::size_t End = NotFound;

    [[nodiscard]] bool Found() const { return End != NotFound; }
    [[nodiscard]] bool operator==(const ElementBounds& other) const
    {
        return Start == other.Start && End == other.End;
    }
    /// REQUIRES: `Found()`.
    [[nodiscard]] TextView ContentIn(TextView text) const { return text.substr(Start + 1, End - Start - 1); }
};

/// Where a scan within an element stops: the first `<` or `>` that is neither escaped nor protected by
/// quotes, or `NotFound`.
struct ElementStop
{
    std::size_t Position = NotFound;
    bool IsInQuotes = false; ///< whether the text ends inside quotes that protect brackets
};

/// Scans the content of an element from `from`, outside quotes.
[[nodiscard]] ElementStop FindStop(TextView text, std::size_t from, bool quotesProtect);

/// Returns the element that starts at the `<` at `start` or, if that is interrupted, at a further `<`. The
/// search for its end begins at `from`. `quotesProtect` is whether quotes protect brackets in the first
/// element.
[[nodiscard]] ElementBounds FindEndOfElement(TextView text, std::size_t start, std::size_t from,
                                             bool quotesProtect);

/// Returns the first element that starts at or after `offset`.
[[nodiscard]] ElementBounds FindElement(TextView text, std::size_t offset);

} // namespace corvanemarkup::Internal
