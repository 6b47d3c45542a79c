#pragma once

/// Edits of a tooltip that preserve all text outside the edited name or filter value, code unit by code unit.
///
/// Edits are returned only if the edited tooltip reads back as the same elements, attributes and fields,
/// apart from the requested change.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <map>
#include <vector>

namespace corvanemarkup::VizInTooltip {

/// Replaces a half-open range of UTF-16 code units by `NewText`; an empty range inserts.
struct TextEdit
{
    CorvaneCharRange Range;
    TString NewText;
};

/// Returns the text with all edits applied. They must be in text order, and all ranges refer to `text` before
/// any edit. Insertions at the same position are applied in their order.
///
/// Throws through `ThrowLogicException` ("isInOrder") unless each range is within the text and starts at or
/// after the end of the previous one. Throws `std::length_error` if the result is too long.
[[nodiscard]] CORVANEMARKUP_EXPORT TString ApplyTextEdits(const TString& text,
                                                          const std::vector<TextEdit>& edits);

/// Returns whether a field can have that name: it isn't empty, and `<name>` reads back as one plain element
/// with that content, in a tooltip and in a filter. `Region` is a field name; `a<b`, `a>` and
/// `Sheet name="S"` are not. Here, an element is plain if `Impl::IsSheetMarkupText` is false and
/// `VizInTooltipProperties::FromMarkupText` returns none for it.
[[nodiscard]] CORVANEMARKUP_EXPORT bool IsFieldName(const TString& name);

/// Returns the edits that rename sheets and fields from their old names, the keys, to their new ones, in text
/// order. Each occurrence is renamed once: two names can be swapped. Old names are case-sensitive. A name
/// that is mapped to itself yields no edit.
///
/// Sheets are renamed in valid sheet elements; fields in the filters of these, and in plain elements, whose
/// whole content is the field: `<b>` is the field `b`. Each edit replaces only a name; quotes in a new name
/// are doubled as needed. An occurrence is left unchanged if the new name would change how the rest of the
/// tooltip is parsed:
///
///     <Sheet name="q" <a> and <Sheet name="T">      `a` can't become `x"y`, which would open quotes
///
/// If the fields of one filter can't all be renamed, because new names contain quotes or brackets, a subset
/// that reads back is renamed. As not all combinations are tried, this isn't always the largest one.
///
/// Throws through `ThrowLogicException` if a new sheet name is empty ("!newSheetName.empty()") or a new field
/// isn't a field name ("IsFieldName(newField)"), whether or not the old name occurs. Throws
/// `std::length_error` if an edited element is too long. Takes time linear in the tooltip, plus looking up
/// names.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TextEdit>
RenameSheetsAndFields(const TString& tooltipText, const std::map<TString, TString>& newSheetNames,
                      const std::map<TString, TString>& newFields);

struct EditAtCursor
{
    TextEdit Edit;
    int NewCursorPosition; ///< in the edited tooltip, just after the closing quote of the `filter`
};

/// Returns the edit that inserts a field into the filter of the element at an editor's cursor (an empty
/// range) or selection. The element must end with its bracket, be readable by
/// `VizInTooltipProperties::FromMarkupText`, and contain the selection in its content, both ends included.
///
///     <Sheet name="S" filter="<a>,<b>">
///                              ^             cursor here: inserting `x` yields "<x>,<b>"
///                             ^^^^^          this selected: "<x>"
///
/// - The field replaces all fields from the first to the last that the selection overlaps, or the field that
///   strictly contains the cursor. If there is none, it is appended, and fields equal to it are removed.
/// - `exclusiveField` is never combined with other fields: it replaces all fields when it is inserted, and is
///   removed when another is. A host without such a field passes an empty text; empty fields are removed
///   then.
/// - The new fields, separated by commas, replace the whole value of the first `filter`. If there is none, a
///   `filter` is added after the last attribute.
///
/// Returns none
/// - if no such element contains the selection, for example while its bracket or a quote is missing,
/// - if the selection ends before it starts,
/// - if `IsFieldName(fieldToInsert)` is false,
/// - or if the result wouldn't read back, for example because the first attribute is unknown, and quotes
///   don't protect brackets then.
///
/// Throws `std::length_error` if the result is too long.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<EditAtCursor>
InsertFilterFieldAt(const TString& tooltipText, CorvaneCharRange selection, const TString& fieldToInsert,
                    const TString& exclusiveField);

} // namespace corvanemarkup::VizInTooltip
