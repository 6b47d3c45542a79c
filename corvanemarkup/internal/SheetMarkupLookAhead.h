#pragma once

/// Recognizes sheet elements and their attributes.

#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/TextView.h>

#include <boost/optional.hpp>

namespace corvanemarkup::Internal {

/// Returns the attribute of a sheet element with that name; none if there is no such attribute.
[[nodiscard]] boost::optional<VizInTooltip::Impl::SheetMarkupAttribute> FindAllowedAttribute(TextView name);

/// Returns whether the name of a sheet element and a space are at `offset`, which must be at most the length
/// of the text.
[[nodiscard]] inline bool HasElementNameAt(TextView text, std::size_t offset)
{
    const TextView name = VizInTooltip::Impl::SheetMarkupElementLiteral;
    return MatchesAt(text, offset, name) && MatchesAt(text, offset + name.size(), u" ");
}

/// Returns whether an element with that content is called Sheet, as `ElementKind` defines it.
[[nodiscard]] bool IsCalledSheet(TextView content);

/// Implements `IsSheetMarkupText` on a view: returns whether the text after a `<` makes quotes protect
/// brackets. Reads only the element's name, a run of white space, and a text as long as the longest attribute
/// name, or white space up to the end of the text.
[[nodiscard]] bool StartsSheetElement(TextView text, std::size_t offset);

} // namespace corvanemarkup::Internal
