#pragma once

/// From the content of one element to the list of its attributes.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

namespace corvanemarkup {

/// The attributes of an element, in text order, duplicates included. An element with a space and no attribute
/// gives an empty list. None
/// - if `TokenizeAttributedMarkupText` fails on the text,
/// - if the element isn't called exactly `elementName`,
/// - or if an attribute isn't a name and a quoted value.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<AttributeNamesAndValues>
ParseAttributedMarkupText(const MarkupText& markupText, const TString& elementName);

} // namespace corvanemarkup
