#pragma once

/// Reads a broken sheet element as its author probably meant it: as the valid one that the fewest mistakes
/// separate from the text.

#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/TextView.h>

#include <vector>

namespace corvanemarkup::Internal {

/// Where in an element a mistake is.
enum class MarkupPlace : std::uint8_t {
    ElementName,
    Between, ///< the attributes, or after the last one
    AttributeName,
    Equals,
    OpeningQuote,
    Value,
    ClosingQuote,
    Bracket
};

/// A difference between the text and what was meant.
struct Mistake
{
    enum class Operation : std::uint8_t {
        Insert,  ///< a unit is missing
        Delete,  ///< the range is superfluous
        Replace, ///< another unit was meant
        Swap,    ///< the two units were meant in the other order
        Fold     ///< the letter has the wrong case
    };

    Operation Kind;
    MarkupPlace Place;
    std::size_t Attribute; ///< the number of the attribute; `NotFound` if the mistake is outside attributes
    std::size_t Start;     ///< half-open, in the text that is searched
    std::size_t End;
    char16_t Unit; ///< what was meant, if a unit is missing or another one was meant
};

struct IntendedAttribute
{
    VizInTooltip::Impl::SheetMarkupAttribute Attribute;
    TextView Whole;
    TextView RawValue; ///< as it is in the text
};

struct IntendedElement
{
    std::size_t End; ///< the position after it
    std::vector<IntendedAttribute> Attributes;
    std::vector<Mistake> Mistakes; ///< ascending

    [[nodiscard]] bool HasName() const;
};

/// Returns whether the unit is white space, looks like it, or can't be seen.
[[nodiscard]] bool IsSpaceLike(char16_t unit);
/// Returns whether the unit is a single or a typographic quote.
[[nodiscard]] bool IsOtherQuote(char16_t unit);

/// Returns whether an element whose content begins with `content` may be misspelled: whether a part of its
/// start is at most one edit from the name of a sheet element.
[[nodiscard]] bool MayBeMisspelled(TextView content);

/// A mistake costs about ten, but white space and letter case less.
constexpr int MostCost = 60;
constexpr int CostOfOneMistake = 30;
constexpr int MostCostIfMisspelled = 40;

/// Longer elements aren't guessed.
constexpr std::size_t MostUnits = 1 << 14;

/// Finds what was meant by the element whose content starts at `start`, just after its `<`. Reads no further
/// than `limit`.
///
/// Returns false if mistakes of more than `mostCost`, which is at most `MostCost`, separate it from any sheet
/// element, or if the search takes more than `steps`, from which it subtracts those that it takes. One
/// mistake is allowed in the element's name, and one in that of each attribute.
[[nodiscard]] bool FindIntendedElement(TextView text, std::size_t start, std::size_t limit, int mostCost,
                                       std::size_t& steps, IntendedElement& element);

} // namespace corvanemarkup::Internal
