#pragma once

/// Finding elements in a view of a tooltip text.

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Where an element stands, or how far the search for one came.
struct ElementBounds
{
    /// The position of its `<`, or of the last `<` at which it restarted. `NotFound` if there is no `<`.
    std::size_t Start = NotFound;
    /// The position of its `>`. `NotFound` if there is no element, or if it has no end.
    std::size_t End = NotFound;

    [[nodiscard]] bool Found() const { return End != NotFound; }
    [[nodiscard]] bool operator==(const ElementBounds& other) const
    {
        return Start == other.Start && End == other.End;
    }
    /// REQUIRES: `Found()`.
    [[nodiscard]] TextView ContentIn(TextView text) const { return text.substr(Start + 1, End - Start - 1); }
};

/// Where a scan that is inside an element stops: the first `<` or `>` that counts. `NotFound` if none does to
/// the end of the text.
struct ElementStop
{
    std::size_t Position = NotFound;
    bool IsInQuotes = false; ///< whether the text ended between protecting quotes
};

/// `quotesProtect` tells whether quotes protect brackets.
[[nodiscard]] ElementStop FindStop(TextView text, std::size_t from, bool quotesProtect);

/// The element that begins with the `<` at `start`, or the one that it restarts as at a later `<`. `from` is
/// where the search for its end begins, and `quotesProtect` tells whether quotes protect brackets until it
/// restarts.
[[nodiscard]] ElementBounds FindEndOfElement(TextView text, std::size_t start, std::size_t from,
                                             bool quotesProtect);

/// The first element that starts at or after `offset`.
[[nodiscard]] ElementBounds FindElement(TextView text, std::size_t offset);

} // namespace corvanemarkup::Internal
