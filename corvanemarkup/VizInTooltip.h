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

#include <boost/optional.hpp>

#include <map>
#include <set>
#include <vector>

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

/// The whole `filter` attribute of an element in its text, from its name through its closing quote; none if
/// it has no such attribute:
///
///     Sheet name="S" filter="<a>,<b>"
///                    ^               ^
///                start               end
///
/// Throws through `ThrowLogicException` where `FindAttributeTokenOffsetAndContent` does.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<CorvaneCharRange>
FindFilterAttributeToken(const MarkupText& sheetMarkupText);

/// The indices of the fields that an editor's cursor (`start` equal to `end`) or selection touches,
/// ascending. A field counts if `start` lies strictly inside it, brackets included, if it begins strictly
/// inside the range, or if the range is exactly the field:
///
///     Sheet name="S" filter="<a>,<b>"
///                            ^^          [24, 24), between these two: field 0
///                            ^^^         [23, 26): field 0
///                             ^^^^^      [24, 29): fields 0 and 1
///                               ^        [26, 26), behind the `>`: none
///
/// `charRange` counts in `sheetMarkupText`, and the fields in the value with its doubled quotes made single,
/// so that each doubled quote in front of a field shifts it by one. Every pair of integers is a valid range.
///
/// Throws through `ThrowLogicException` where `FindAttributeTokenOffsetAndContent` does.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<int>
GetIndexOfFiltersAtCharRange(const MarkupText& sheetMarkupText, CorvaneCharRange charRange);

/// The element with `fieldToInsert` in place of the fields from the first through the last of `fieldIndices`;
/// the entries between aren't read. With no indices the field goes to the end of the list, where it stands
/// once.
///
/// `exclusiveField` stands alone: inserted, it replaces the whole list; when another field is inserted, it
/// goes. The element needn't be valid, and is rebuilt from its attributes. Where the
/// first of these is none of a sheet element's, no quotes protect the brackets of the filter in a tooltip.
///
/// Throws through `ThrowLogicException` if `VizInTooltipProperties::FromMarkupText` gives nothing for the
/// text
/// ("vizInTooltipProperties"), or unless 0 <= first <= last + 1 <= the number of fields
/// ("first >= 0 && first - 1 <= last && last < fieldCount").
[[nodiscard]] CORVANEMARKUP_EXPORT MarkupText
InsertFilterFieldIntoMarkupText(const MarkupText& sheetMarkupText, const TString& fieldToInsert,
                                const TString& exclusiveField, const std::vector<int>& fieldIndices);

struct NewCursorPositionAndMarkupText
{
    int NewCursorPosition; ///< in `NewMarkupText`, behind the closing quote of its `filter` attribute
    MarkupText NewMarkupText;
};

/// Inserts the field at the editor's cursor, or in place of the fields that its selection touches:
/// `InsertFilterFieldIntoMarkupText` with the indices of `GetIndexOfFiltersAtCharRange`. Throws where these
/// do, and where `FindFilterAttributeToken` does for the new text, which a quote in an attribute's name can
/// keep from being read.
[[nodiscard]] CORVANEMARKUP_EXPORT NewCursorPositionAndMarkupText
InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(const MarkupText& sheetMarkupText,
                                                       const CorvaneCharRange& charRange,
                                                       const TString& fieldToInsert,
                                                       const TString& exclusiveField);

/// The filter fields of each target sheet, of the valid sheet elements that `CollectMarkupElements` finds. A
/// sheet element without a `filter` stands for the one field "All Fields"; one whose `filter` holds no field
/// is passed over. Where several elements have one target sheet, the first in the order of the element texts
/// decides.
[[nodiscard]] CORVANEMARKUP_EXPORT std::map<TString, std::set<TString>>
GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(const TString& tooltipText);

/// The target sheets of the previous tooltip whose fields, as the operation above tells them, are gone or
/// others in the current one; ascending.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TString>
CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(const TString& previousTooltipText,
                                                     const TString& currentTooltipText);

/// All filter fields of the valid sheet elements that `CollectMarkupElements` finds, duplicates included: the
/// last element in the order of the element texts comes first, and the fields of each keep their order.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TString>
GetFilterFieldsFromSheetMarkupInTooltipText(const TString& tooltipText);

} // namespace corvanemarkup::VizInTooltip
