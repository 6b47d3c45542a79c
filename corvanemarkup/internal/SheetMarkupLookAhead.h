#pragma once

/// Telling a sheet element by how it starts.

#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/TextView.h>

#include <boost/optional.hpp>

namespace corvanemarkup::Internal {

/// Which attribute of a sheet element has that name; none if the name isn't allowed there.
[[nodiscard]] boost::optional<VizInTooltip::Impl::SheetMarkupAttribute> FindAllowedAttribute(TextView name);

/// Whether the name of a sheet element stands at `offset`, with a space after it.
[[nodiscard]] inline bool HasElementNameAt(TextView text, std::size_t offset)
{
    const TextView name = VizInTooltip::Impl::SheetMarkupElementLiteral;
    return StandsAt(text, offset, name) && StandsAt(text, offset + name.size(), u" ");
}

/// `IsSheetMarkupText` on a view: whether what follows a `<` makes quotes protect brackets. Reads the element
/// name, a run of white space, and at most the length of the longest attribute name, or white space to the
/// end of the text.
[[nodiscard]] bool StartsSheetElement(TextView text, std::size_t offset);

} // namespace corvanemarkup::Internal
