#pragma once

/// The names of `SheetMarkupFormat.h` in the types that hosts pass on.
///
/// The constants have internal linkage: each source that includes this header holds its own. They are built
/// when the program or library with that source is loaded, so that code which runs earlier uses the literals.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvaneplatform/TString.h>

namespace corvanemarkup::VizInTooltip::Impl {

const TString SheetMarkupElementName{SheetMarkupElementLiteral.data(), -1};

namespace SheetMarkupAttributeNames {

const AttributeName Name{TString(LiteralOf(SheetMarkupAttribute::Name).data(), -1)};
const AttributeName MaxWidth{TString(LiteralOf(SheetMarkupAttribute::MaxWidth).data(), -1)};
const AttributeName MaxHeight{TString(LiteralOf(SheetMarkupAttribute::MaxHeight).data(), -1)};
const AttributeName Filter{TString(LiteralOf(SheetMarkupAttribute::Filter).data(), -1)};

} // namespace SheetMarkupAttributeNames

} // namespace corvanemarkup::VizInTooltip::Impl
