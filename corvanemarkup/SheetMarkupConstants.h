#pragma once

/// The names of `SheetMarkupFormat.h` as a `TString` and as `AttributeName`s.
///
/// The constants have internal linkage: each source that includes this header has its own. They are
/// initialized dynamically; code that may run before must use the literals of `SheetMarkupFormat.h`.

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
