#pragma once

/// Queries of whole tooltips, and queries and edits of sheet elements.
///
/// A tooltip text is a whole template: plain text with elements in angle brackets. A markup text is the
/// content of one element, without its brackets. A valid sheet element is a markup text for which
/// `VizInTooltipProperties::FromMarkupText` returns an object whose `IsValid` is true. Its target sheet is
/// its sheet name.
///
/// To edit a whole tooltip, use `TextEdits.h`, which is simpler and preserves all other text.
///
/// Positions are in UTF-16 code units, and ranges are half-open. Each operation takes time linear in its
/// texts, plus sorting.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvanemarkup/MarkupElementFinders.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <map>
#include <set>
#include <vector>

namespace corvanemarkup::VizInTooltip {

/// Returns the target sheet of a valid sheet element; empty for any other text.
[[nodiscard]] CORVANEMARKUP_EXPORT TString GetTargetSheetNameFromMarkupText(const TString& markupText);

/// Returns the target sheets of the valid sheet elements among `markupElements`.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString>
GetTargetSheetNamesFromMarkupElementSet(const std::set<TString>& markupElements);

/// Returns the target sheets of the valid sheet elements that `CollectMarkupElements` finds.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString>
GetTargetSheetNamesFromTooltipText(const TString& tooltipText);

/// Renames the sheet of one element. If `sheetMarkupText` is a valid sheet element with the target sheet
/// `currentSheetName`, sets `replacedSheetMarkupText` to the canonical form of the element with the name
/// `newSheetName`, and returns true. Otherwise returns false and leaves `replacedSheetMarkupText` unchanged.
///
/// `newSheetName` isn't validated: an empty one yields an invalid element.
[[nodiscard]] CORVANEMARKUP_EXPORT bool
ReplaceSheetNameInSheetMarkupText(const MarkupText& sheetMarkupText, const TString& currentSheetName,
                                  const TString& newSheetName, MarkupText& replacedSheetMarkupText);

/// Returns the canonical form of the first element with the sheet name of the second; `firstMarkupText`
/// itself if the second isn't a valid sheet element. Throws through `ThrowLogicException` if the first isn't
/// one ("vizInTooltipProperties && vizInTooltipProperties->IsValid()").
[[nodiscard]] CORVANEMARKUP_EXPORT MarkupText ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond(
    const MarkupText& firstMarkupText, const MarkupText& secondMarkupText);

/// Returns the range of the sheet name's raw value in the element's text, without the enclosing quotes:
///
///     Sheet name="a""b" maxwidth="300"
///                 ^   ^
///             start   end
///
/// Throws like `Impl::FindAttributeTokenOffsetAndContent`, and through `ThrowLogicException` if there is no
/// `name` ("nameToken").
[[nodiscard]] CORVANEMARKUP_EXPORT CorvaneCharRange
GetCharRangeOfSheetNameAttributeValue(const MarkupText& sheetMarkupText);

/// Returns the range of the first `filter` attribute in the element's text, from its name through its closing
/// quote; none if there is no such attribute:
///
///     Sheet name="S" filter="<a>,<b>"
///                    ^               ^
///                start               end
///
/// Throws like `Impl::FindAttributeTokenOffsetAndContent`.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<CorvaneCharRange>
FindFilterAttributeToken(const MarkupText& sheetMarkupText);

/// Returns the indices of the filter fields that an editor's cursor (`start` equal to `end`) or selection
/// touches, ascending; none if there is no `filter`. A field, including its brackets, is touched if it
/// strictly contains `start`, if it begins strictly inside the range, or if it is exactly the range:
///
///     Sheet name="S" filter="<a>,<b>"
///                            ^^          [24, 24), between these two: field 0
///                            ^^^         [23, 26): field 0
///                             ^^^^^      [24, 29): fields 0 and 1
///                               ^        [26, 26), after the `>`: none
///
/// `charRange` refers to `sheetMarkupText`, but positions of fields refer to the unescaped value: each
/// doubled quote before a field shifts it to the left by one.
///
/// Every pair of integers is a valid range, even beyond the text. Whether a field contains `start` depends on
/// the lowest 32 bits of its distance from the value, and positions near the limits of 64 bits wrap.
///
/// Throws like `Impl::FindAttributeTokenOffsetAndContent`.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<int>
GetIndexOfFiltersAtCharRange(const MarkupText& sheetMarkupText, CorvaneCharRange charRange);

/// Returns the canonical form of the element with `fieldToInsert` in its filter.
///
/// - The field replaces all fields from the first of `fieldIndices` through the last; only these two indices
///   matter. If the last is one less than the first, nothing is replaced, and the field is inserted before
///   the first.
/// - If `fieldIndices` is empty, the field is appended, and fields equal to it are removed.
/// - `exclusiveField` is never combined with other fields. It replaces all fields when it is inserted,
///   whatever `fieldIndices`, and is removed when another is inserted.
///
/// The element needn't be valid. In a tooltip, quotes protect the brackets of the result's filter only if
/// `Impl::IsSheetMarkupText` is true at its offset 0, that is, if its first attribute is one of a sheet
/// element.
///
/// Throws through `ThrowLogicException`
/// - if `VizInTooltipProperties::FromMarkupText` returns none for the text ("vizInTooltipProperties"),
/// - unless 0 <= first <= last + 1 <= number of fields
///   ("first >= 0 && first - 1 <= last && last < fieldCount").
[[nodiscard]] CORVANEMARKUP_EXPORT MarkupText
InsertFilterFieldIntoMarkupText(const MarkupText& sheetMarkupText, const TString& fieldToInsert,
                                const TString& exclusiveField, const std::vector<int>& fieldIndices);

/// An edited element, and the new position of the editor's cursor.
struct NewCursorPositionAndMarkupText
{
    int NewCursorPosition; ///< in `NewMarkupText`, just after the closing quote of its `filter` attribute
    MarkupText NewMarkupText;
};

/// Inserts the field in place of those that the editor's cursor or selection touches:
/// `InsertFilterFieldIntoMarkupText` with the indices of `GetIndexOfFiltersAtCharRange`. Throws like these
/// two, and like `FindFilterAttributeToken` for the new text: a quote in an attribute's name can make that
/// text unreadable.
[[nodiscard]] CORVANEMARKUP_EXPORT NewCursorPositionAndMarkupText
InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(const MarkupText& sheetMarkupText,
                                                       const CorvaneCharRange& charRange,
                                                       const TString& fieldToInsert,
                                                       const TString& exclusiveField);

/// Returns the filter fields of each target sheet, from the valid sheet elements that `CollectMarkupElements`
/// finds. An element without a `filter` has the one field "All Fields". An element whose `filter` contains no
/// field is ignored. If several elements have the same target sheet, the one whose content is least by
/// `TString::operator<` is used, regardless of its position.
[[nodiscard]] CORVANEMARKUP_EXPORT std::map<TString, std::set<TString>>
GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(const TString& tooltipText);

/// Compares the results of `GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText`. Returns, in
/// ascending order, the target sheets of the previous tooltip that are missing from the current one or have
/// different fields there.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TString>
CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(const TString& previousTooltipText,
                                                     const TString& currentTooltipText);

/// Returns all filter fields of the valid sheet elements that `CollectMarkupElements` finds, including
/// duplicates. The elements are in descending order of their contents, and the fields of each in text order.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TString>
GetFilterFieldsFromSheetMarkupInTooltipText(const TString& tooltipText);

} // namespace corvanemarkup::VizInTooltip
