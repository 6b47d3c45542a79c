#pragma once

/// Parses the content of one element into a list of attributes.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

namespace corvanemarkup {

/// Returns the attributes of an element in text order, including duplicates; an empty list if a space follows
/// the element's name but no attribute. Returns none
/// - if `TokenizeAttributedMarkupText` fails,
/// - if the element's name isn't exactly `elementName`,
/// - or if an attribute isn't a name and a quoted value.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<AttributeNamesAndValues>
ParseAttributedMarkupText(const MarkupText& markupText, const TString& elementName);

} // namespace corvanemarkup
