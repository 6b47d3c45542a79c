#pragma once

/// Basic operations on sheet markup, for hosts that scan texts themselves. In spite of the namespace's name,
/// they are public and as stable as all others. Positions are in UTF-16 code units.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <vector>

namespace corvanemarkup::VizInTooltip::Impl {

/// Returns whether the text at `offset`, the position just after a `<`, starts with the name of a sheet
/// element, a space, optional white space, and the name of one of its attributes. This look-ahead doesn't
/// validate anything after that name.
///
///     <Sheet name="Sales" ...
///      ^ offset
///
/// The attribute's name must be followed by `=`, without white space before it, or by nothing but white space
/// up to the end of the text. White space is what `TString::Trim` strips. Returns false if `offset` is
/// outside the text.
[[nodiscard]] CORVANEMARKUP_EXPORT bool IsSheetMarkupText(const TString& text, int offset);

/// Parses one attribute, `name="value"`. The name is everything before the first `=`, unchanged; the value is
/// unescaped. Returns none if there is no `=`, or if what follows it isn't enclosed in quotes.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<AttributeNameAndValue>
ExtractNameAndValue(const TString& text);

/// Removes the quotes at both ends of `value`. Returns false and leaves `value` unchanged unless it both
/// starts and ends with a quote, which must be two different ones.
[[nodiscard]] CORVANEMARKUP_EXPORT bool StripEnclosingQuotes(TString& value);

/// Replaces each doubled quote in `value` by a single one, from left to right.
CORVANEMARKUP_EXPORT void UnescapeQuotes(TString& value);

/// Parses a list of attributes, `a="1" b="2"`, without an element name, and appends them to `out`. Stricter
/// than parsing an element: a space or the end must follow each closing quote. U+0000 ends the text.
///
/// Returns true if the whole text was parsed and `out` isn't empty afterwards. Attributes that were parsed
/// before a failure or an exception remain in `out`. `phrase` must not be part of `out`.
[[nodiscard]] CORVANEMARKUP_EXPORT bool FindNameValuePairs(const TString& phrase,
                                                           std::vector<AttributeNameAndValue>& out);

/// The source text of an attribute.
struct AttributeTokenOffsetAndContent
{
    int Offset;      ///< position of its first code unit in the text that was searched
    TString Content; ///< `name="value"`, including quotes and doubled quotes
};

/// Returns the first attribute with that name in the content of an element, whatever the element's name; none
/// if there is no such attribute.
///
/// Throws through `ThrowLogicException` if `TokenizeAttributedMarkupText` fails ("tokenizeResult.Success"),
/// or if an attribute up to the match isn't a name and a quoted value ("attributeNameAndValue").
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<AttributeTokenOffsetAndContent>
FindAttributeTokenOffsetAndContent(const MarkupText& markupText, const AttributeName& attributeName);

} // namespace corvanemarkup::VizInTooltip::Impl
