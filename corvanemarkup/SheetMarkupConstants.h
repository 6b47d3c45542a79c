#pragma once

/// What a sheet element is called and what its attributes are:
///
///     <Sheet name="Sales" maxwidth="300" maxheight="300" filter="<Region>,<Year>">
///
/// The constants have internal linkage: each source that includes this header holds its own.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvaneplatform/TSize.h>
#include <corvaneplatform/TString.h>

namespace corvanemarkup::VizInTooltip {

/// The largest size of a sheet whose element doesn't tell it.
const TSize DefaultMaxSize(300, 300);

namespace Impl {

const TString SheetMarkupElementName(u"Sheet", -1);

namespace SheetMarkupAttributeNames {

const AttributeName Name(TString(u"name", -1));
const AttributeName MaxWidth(TString(u"maxwidth", -1));
const AttributeName MaxHeight(TString(u"maxheight", -1));
const AttributeName Filter(TString(u"filter", -1));

} // namespace SheetMarkupAttributeNames

} // namespace Impl

} // namespace corvanemarkup::VizInTooltip
