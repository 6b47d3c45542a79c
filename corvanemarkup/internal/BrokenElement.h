#pragma once

/// What is wrong with an element that was probably meant as a sheet element: one diagnostic for each cause.

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/IntendedElement.h>

#include <vector>

namespace corvanemarkup::Internal {

/// A cause, and the mistakes that it consists of.
struct Cause
{
    VizInTooltip::DiagnosticKind Kind;
    TextView Range;
    std::vector<Mistake> Mistakes; ///< ascending; none for a missing name or an invalid size
};

struct BrokenElement
{
    TextView Whole;
    std::vector<Cause> Causes;
};

/// Returns whether the value isn't that of a `maxwidth` or `maxheight`, or is valid.
[[nodiscard]] bool HasValidSize(VizInTooltip::Impl::SheetMarkupAttribute attribute, TextView rawValue);

/// Finds the causes for which the element whose content starts at `start` isn't a valid sheet element.
/// Returns false if it wasn't meant as one, as far as can be guessed; see `FindIntendedElement` for `limit`
/// and `steps`. `ending` is how the element ends in the walk.
[[nodiscard]] bool ReadBrokenElement(TextView text, std::size_t start, std::size_t limit,
                                     WalkedElement::Ending ending, int mostCost, std::size_t& steps,
                                     BrokenElement& element);

} // namespace corvanemarkup::Internal
