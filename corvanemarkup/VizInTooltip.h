#pragma once

/// What a host calls for whole tooltips and for sheet elements.
///
/// A tooltip text is a whole template, plain text with elements in angle brackets. A markup text is the
/// content of one element, without its brackets. A valid sheet element is a markup text for which
/// `VizInTooltipProperties::FromMarkupText` gives an object whose `IsValid` is true; its target sheet is its
/// name.
///
/// To edit a whole tooltip, `TextEdits.h` is simpler, and leaves all other text as it is.
///
/// Positions count UTF-16 code units, and ranges are half-open. Each operation takes time linear in its
/// texts; sorting adds a logarithm.

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

/// The target sheet of a valid sheet element; empty for any other text.
[[nodiscard]] CORVANEMARKUP_EXPORT TString GetTargetSheetNameFromMarkupText(const TString& markupText);

/// The target sheets of those elements that are valid sheet elements.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString>
GetTargetSheetNamesFromMarkupElementSet(const std::set<TString>& markupElements);

/// The target sheets of a tooltip, of the elements that `CollectMarkupElements` finds.
[[nodiscard]] CORVANEMARKUP_EXPORT std::set<TString>
GetTargetSheetNamesFromTooltipText(const TString& tooltipText);

/// Renames the sheet of one element. If `sheetMarkupText` is a valid sheet element with the target sheet
/// `currentSheetName`, writes the element with the name `newSheetName` to `replacedSheetMarkupText` and
/// returns true. Otherwise returns false and writes nothing.
///
/// The element is rebuilt from its attributes, with one space in front of each. `newSheetName` isn't judged:
/// an empty one gives an invalid element.
[[nodiscard]] CORVANEMARKUP_EXPORT bool
ReplaceSheetNameInSheetMarkupText(const MarkupText& sheetMarkupText, const TString& currentSheetName,
                                  const TString& newSheetName, MarkupText& replacedSheetMarkupText);

/// The first element with the sheet name of the second, rebuilt from its attributes; `firstMarkupText` as it
/// is if the second isn't a valid sheet element. Throws through `ThrowLogicException` if the first isn't one
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

/// Where the first `filter` attribute stands in the element's text, from its name through its closing quote;
/// none if the element has no such attribute:
///
///     Sheet name="S" filter="<a>,<b>"
///                    ^               ^
///                start               end
///
/// Throws through `ThrowLogicException` where `FindAttributeTokenOffsetAndContent` does.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<CorvaneCharRange>
FindFilterAttributeToken(const MarkupText& sheetMarkupText);

/// The indices of the filter fields that an editor's cursor (`start` equal to `end`) or selection touches,
/// ascending; none if the element has no `filter`. A field counts if `start` lies strictly inside it,
/// brackets included, if it begins strictly inside the range, or if the range is exactly the field:
///
///     Sheet name="S" filter="<a>,<b>"
///                            ^^          [24, 24), between these two: field 0
///                            ^^^         [23, 26): field 0
///                             ^^^^^      [24, 29): fields 0 and 1
///                               ^        [26, 26), after the `>`: none
///
/// `charRange` counts in `sheetMarkupText`. The fields count in the value with its doubled quotes made
/// single, so that each doubled quote in front of a field shifts it to the left by one.
///
/// Every pair of integers is a valid range, and one that reaches beyond the text is judged like any other.
/// Beyond the range of `int`, `start` lies inside a field if its lowest 32 bits do, and positions near the
/// ends of 64 bits wrap.
///
/// Throws through `ThrowLogicException` where `FindAttributeTokenOffsetAndContent` does.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<int>
GetIndexOfFiltersAtCharRange(const MarkupText& sheetMarkupText, CorvaneCharRange charRange);

/// The element with `fieldToInsert` in its filter.
///
/// - The field replaces those from the first of `fieldIndices` through the last. The indices between these
///   aren't read. If the last is the first less one, nothing is replaced: the field goes in front of the
///   first.
/// - If `fieldIndices` is empty, the field goes to the end of the filter, and fields equal to it are removed.
/// - `exclusiveField` stands alone in a filter. Inserted, it replaces all fields, and `fieldIndices` isn't
///   read. When another field is inserted, it is removed.
///
/// The element needn't be valid. It is rebuilt from its attributes, with one space in front of each. Quotes
/// protect the brackets of the filter in a tooltip only if the first attribute is one of a sheet element:
/// `Impl::IsSheetMarkupText` at offset 0 of the result tells.
///
/// Throws through `ThrowLogicException`
/// - if `VizInTooltipProperties::FromMarkupText` gives nothing for the text ("vizInTooltipProperties"),
/// - unless 0 <= first <= last + 1 <= number of fields
///   ("first >= 0 && first - 1 <= last && last < fieldCount").
[[nodiscard]] CORVANEMARKUP_EXPORT MarkupText
InsertFilterFieldIntoMarkupText(const MarkupText& sheetMarkupText, const TString& fieldToInsert,
                                const TString& exclusiveField, const std::vector<int>& fieldIndices);

/// An edited element, and where the editor's cursor goes.
struct NewCursorPositionAndMarkupText
{
    int NewCursorPosition; ///< in `NewMarkupText`, just after the closing quote of its `filter` attribute
    MarkupText NewMarkupText;
};

/// Inserts the field at the editor's cursor, or in place of the fields that its selection touches:
/// `InsertFilterFieldIntoMarkupText` with the indices of `GetIndexOfFiltersAtCharRange`. Throws where these
/// two do. It also throws where `FindFilterAttributeToken` does for the new text: a quote in an attribute's
/// name can make that text unreadable.
[[nodiscard]] CORVANEMARKUP_EXPORT NewCursorPositionAndMarkupText
InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition(const MarkupText& sheetMarkupText,
                                                       const CorvaneCharRange& charRange,
                                                       const TString& fieldToInsert,
                                                       const TString& exclusiveField);

/// The filter fields of each target sheet, from the valid sheet elements that `CollectMarkupElements` finds.
/// An element without a `filter` stands for the one field "All Fields". An element whose `filter` holds no
/// field is passed over. If several elements have the same target sheet, the one whose content is least
/// decides, wherever it stands.
[[nodiscard]] CORVANEMARKUP_EXPORT std::map<TString, std::set<TString>>
GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(const TString& tooltipText);

/// The target sheets of the previous tooltip that have other fields in the current one, or none, ascending.
/// What the fields of a sheet are, `GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText` tells.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TString>
CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(const TString& previousTooltipText,
                                                     const TString& currentTooltipText);

/// All filter fields of the valid sheet elements that `CollectMarkupElements` finds, duplicates included. The
/// elements come from the greatest content to the least, wherever they stand, and the fields of each in their
/// own order.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TString>
GetFilterFieldsFromSheetMarkupInTooltipText(const TString& tooltipText);

} // namespace corvanemarkup::VizInTooltip
