#pragma once

/// The operations on sheet markup that the rest of the library builds on, and that hosts may, too: they stay
/// like all public ones. Positions count UTF-16 code units.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <vector>

namespace corvanemarkup::VizInTooltip::Impl {

/// Whether the text at `offset`, the position just after a `<`, starts with the name of a sheet element and
/// one of its attribute names. This look-ahead is no validation: what follows the `=` isn't read.
///
///     <Sheet name="Sales" ...
///      ^ offset
///
/// White space is what `TString::Trim` strips. A name also counts if nothing but white space follows to the
/// end of the text; one with white space in front of its `=` doesn't. An `offset` outside the text gives
/// false.
[[nodiscard]] CORVANEMARKUP_EXPORT bool IsSheetMarkupText(const TString& text, int offset);

/// Reads one attribute, `name="value"`: the name is everything in front of the first `=`, as it stands; the
/// value loses its enclosing quotes, and its doubled quotes become single. None if there is no `=`, or if
/// what follows it isn't enclosed in quotes.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<AttributeNameAndValue>
ExtractNameAndValue(const TString& text);

/// Removes the quote at each end of `value`. False, with `value` unchanged, unless both are there; one quote
/// alone isn't taken for both.
[[nodiscard]] CORVANEMARKUP_EXPORT bool StripEnclosingQuotes(TString& value);

/// Replaces each doubled quote in `value` by one, from left to right.
CORVANEMARKUP_EXPORT void UnescapeQuotes(TString& value);

/// Reads a run of attributes, `a="1" b="2"`, without an element name in front, and appends them to `out`.
/// Stricter than reading an element: a space or the end must follow each closing quote. U+0000 ends the text.
///
/// True if all of the text was read and `out` isn't empty then. Attributes read before a failure, or before
/// an exception, stay in `out`. `phrase` must not be part of `out`.
[[nodiscard]] CORVANEMARKUP_EXPORT bool FindNameValuePairs(const TString& phrase,
                                                           std::vector<AttributeNameAndValue>& out);

/// One attribute of an element as it stands in the element's text.
struct AttributeTokenOffsetAndContent
{
    int Offset;      ///< of the token's first code unit in the text that was searched
    TString Content; ///< `name="value"`, raw: quotes and doubled quotes unchanged
};

/// The first attribute with that name in the content of an element, whatever the element is called; none if
/// it has no such attribute.
///
/// Throws through `ThrowLogicException` if `TokenizeAttributedMarkupText` fails on the text
/// ("tokenizeResult.Success"), and at an attribute that isn't a name and a quoted value
/// ("attributeNameAndValue"). Attributes after the match aren't judged.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<AttributeTokenOffsetAndContent>
FindAttributeTokenOffsetAndContent(const MarkupText& markupText, const AttributeName& attributeName);

} // namespace corvanemarkup::VizInTooltip::Impl
