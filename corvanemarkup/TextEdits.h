#pragma once

/// Edits of a tooltip that leave all other text as it is, unit for unit.
///
/// An edit here counts on its result: what comes out reads, in the whole tooltip, as the same elements,
/// attributes and fields but for what was to change. Where that can't be had, there is no edit.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <map>
#include <vector>

namespace corvanemarkup::VizInTooltip {

/// Puts `Text` in the place of a half-open range of UTF-16 code units; an empty range inserts.
struct TextEdit
{
    CorvaneCharRange Replaced;
    TString Text;
};

/// The text with all edits made. They come in the order of the text, and their ranges are told in the text as
/// it is before any of them; insertions at one place come out in their order.
///
/// Throws through `ThrowLogicException` ("isInOrder") unless each edit lies in the text and starts at or
/// after the end of the one before. Throws `std::length_error` if the result is too long.
[[nodiscard]] CORVANEMARKUP_EXPORT TString ApplyTextEdits(const TString& text,
                                                          const std::vector<TextEdit>& edits);

/// Whether a field can have that name: it isn't empty, and `<name>` reads back as this one element, which is
/// plain, in a tooltip and in a filter. `Region` can be one; `a<b`, `a>` and `Sheet name="S"` can't. A plain
/// element is one that neither `Impl::IsSheetMarkupText` recognises nor
/// `VizInTooltipProperties::FromMarkupText` reads.
[[nodiscard]] CORVANEMARKUP_EXPORT bool IsFieldName(const TString& name);

/// The edits that rename sheets and fields, each from its old name, the key, to its new one. Each name is
/// changed once, so that two can be exchanged. Old names are met in these very letters; one that is its own
/// new name gives no edit.
///
/// Sheets are renamed in valid sheet elements, fields in the filters of these and in plain elements whose
/// whole content is the field: `<b>` is the field `b`. The edits touch the names alone; quotes in a new name
/// are doubled as needed. An occurrence stays as it is where the new name would change what the rest of the
/// tooltip reads as:
///
///     <Sheet name="q" <a> and <Sheet name="T">      `a` can't become `x"y`, which would open a quote
///
/// Throws through `ThrowLogicException` if a new sheet name is empty ("!newSheetName.empty()"), or a new
/// field is none ("IsFieldName(newField)"), whether or not the old names occur; and `std::length_error` if an
/// element gets too long for a text. Takes time linear in the tooltip, but for looking names up.
///
/// If new fields of one filter can't all be had, because of quotes or brackets in them, as many as are found
/// to go together are renamed. Not all combinations are tried, so that more of them than need be may stay.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<TextEdit>
RenameSheetsAndFields(const TString& tooltipText, const std::map<TString, TString>& newSheetNames,
                      const std::map<TString, TString>& newFields);

struct FieldInsertion
{
    TextEdit Edit;
    int NewCursorPosition; ///< after the edit, in the whole tooltip: after the closing quote of the `filter`
};

/// The edit that inserts a field into the filter at an editor's cursor (an empty range) or selection. It
/// counts for the element, ended by its bracket and read by `VizInTooltipProperties::FromMarkupText`, the
/// content of which holds the selection, ends included.
///
/// The field takes the place of the fields, from the first to the last, that the selection overlaps, or that
/// the cursor stands strictly inside. Without such it goes to the end, where it stands once. `exclusiveField`
/// stands alone: inserted, it replaces all fields; when another is inserted, it goes. A host without such a
/// field passes an empty text, and empty fields go. The new fields take the place of the whole value of the
/// first `filter`, joined by commas; without one, a `filter` comes after the last attribute.
///
///     <Sheet name="S" filter="<a>,<b>">
///                              ^             with the cursor here, `x` makes it "<x>,<b>"
///                             ^^^^^          with this selected, "<x>"
///
/// None if no such element holds the selection, as while its bracket or a quote is still to be typed; if the
/// selection starts after its end; if `IsFieldName(fieldToInsert)` is false; or if the result would not read
/// back: as where the first attribute is none of a sheet element's, so that no quotes protect brackets.
/// Throws `std::length_error` if the result is too long.
[[nodiscard]] CORVANEMARKUP_EXPORT boost::optional<FieldInsertion>
InsertFilterFieldAt(const TString& tooltipText, CorvaneCharRange selection, const TString& fieldToInsert,
                    const TString& exclusiveField);

} // namespace corvanemarkup::VizInTooltip
