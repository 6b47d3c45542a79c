#pragma once

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

namespace corvanemarkup {

/// The attributes of an element, in text order, duplicates included. None if the text doesn't tokenize, if
/// the element isn't called exactly `elementName`, or if one attribute isn't a name and a quoted value. An
/// element with a space and no attribute gives an empty list.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<AttributeNamesAndValues>
ParseAttributedMarkupText(const MarkupText& markupText, const TString& elementName);

} // namespace corvanemarkup
