#pragma once

/// What a host calls for whole tooltips and for sheet elements.
///
/// A tooltip text is a whole template, plain text with elements in angle brackets. A markup text is the
/// content of one element, without its brackets. A valid sheet element is a markup text for which
/// `VizInTooltipProperties::FromMarkupText` gives an object whose `IsValid` is true; its target sheet is its
/// name.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/Export.h>
#include <corvanemarkup/MarkupElementFinders.h>
#include <corvaneplatform/TString.h>

#include <set>

namespace corvanemarkup::VizInTooltip {

/// The target sheet of a valid sheet element; empty for any other text.
[[nodiscard]] CORVANEMARKUP_EXPORT TString GetTargetSheetNameFromMarkupText(const TString& markupText);

/// The target sheets of those elements that are valid sheet elements.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString>
GetTargetSheetNamesFromMarkupElementSet(const std::set<TString>& markupElements);

/// The target sheets of a tooltip, of the elements that `CollectMarkupElements` finds.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString>
GetTargetSheetNamesFromTooltipText(const TString& tooltipText);

/// If `sheetMarkupText` is a valid sheet element with the target sheet `currentSheetName`, writes the element
/// with the name `newSheetName` to `replacedSheetMarkupText` and returns true. Otherwise returns false and
/// writes nothing.
///
/// The element is rebuilt from its attributes, with one space in front of each. `newSheetName` isn't judged:
/// an empty one gives an invalid element.
[[nodiscard]] CORVANEMARKUP_EXPORT bool
ReplaceSheetNameInSheetMarkupText(const MarkupText& sheetMarkupText, const TString& currentSheetName,
                                  const TString& newSheetName, MarkupText& replacedSheetMarkupText);

/// The first element with the sheet name of the second; `firstMarkupText` as it is if the second isn't a
/// valid sheet element. Throws through `ThrowLogicException` if the first isn't one
/// ("vizInTooltipProperties && vizInTooltipProperties->IsValid()").
[[nodiscard]] CORVANEMARKUP_EXPORT MarkupText ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond(
    const MarkupText& firstMarkupText, const MarkupText& secondMarkupText);

/// Where the characters of the sheet name stand in the element's text, doubled quotes counting as two:
///
///     Sheet name="a""b" maxwidth="300"
///                 ^   ^
///             start   end
///
/// Throws through `ThrowLogicException` where `FindAttributeTokenOffsetAndContent` does, and if the element
/// has no `name` ("nameToken").
[[nodiscard]] CORVANEMARKUP_EXPORT CorvaneCharRange
GetCharRangeOfSheetNameAttributeValue(const MarkupText& sheetMarkupText);

} // namespace corvanemarkup::VizInTooltip
