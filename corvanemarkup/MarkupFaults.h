#pragma once

/// What is wrong with a tooltip, and where.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <cstdint>
#include <vector>

namespace corvanemarkup::VizInTooltip {

/// An element is called Sheet if its content begins with `Sheet`, in any ASCII letter case, followed by white
/// space or the end of the content. It is readable if `VizInTooltipProperties::FromMarkupText` gives a value
/// for its content, and valid if that is valid and the element ends with its bracket.
enum class MarkupFaultKind : std::int32_t {
    // Of any element.
    MissingEnd, ///< no bracket ends it: from its `<` to the end of the text
    OpenQuotes, ///< the same, because the text ends between quotes that protect brackets
    Restart,    ///< given up at a further `<`: up to that

    // Of elements called Sheet that aren't readable, but ended or given up. Each attribute has the first of
    // these that fits.
    OtherLetterCase,   ///< the element's name, which isn't `Sheet` in these letters
    NoAttributes,      ///< the element's name, with nothing but white space after it
    OtherWhiteSpace,   ///< white space other than spaces, where a space should be; see `UnallowedAttribute`
    SpaceAroundEquals, ///< an attribute with white space on a side of its `=`
    UnquotedValue,     ///< an attribute with a value that doesn't start with a quote
    MissingValue,      ///< an attribute without a `=`, or with nothing after it
    UnprotectedQuotes, ///< an attribute whose quotes are still open where the bracket stands

    // Of readable elements that end with a bracket; as the operations of `VizInTooltipProperties` judge.
    DuplicateAttribute, ///< each attribute with the name of an earlier one
    MissingSheetName,   ///< the empty `name`, or the element if it has none
    InvalidSheetSize,   ///< the `maxwidth` or `maxheight` that is out of range
    /// An attribute that a sheet element can't have. If white space other than spaces makes it one, its range
    /// holds that, and `OtherWhiteSpace` is told beside it.
    UnallowedAttribute,

    // Of valid elements.
    StrayFilterText, ///< what stands in a filter outside of fields, commas and spaces
    DuplicateField   ///< each field that stands in its filter before
};

/// A fault, and what a host would underline: a half-open range of UTF-16 code units in the tooltip.
struct MarkupFault
{
    MarkupFaultKind Kind;
    CorvaneCharRange Range;
    /// Whether a sheet is lost: the kind is `OpenQuotes`, or the element is called Sheet, holds a `=` and
    /// isn't valid. All else, such as `x < 5`, may well be meant.
    bool IsError;
};

/// All faults of a tooltip, ascending by start, then by kind. Ranges may overlap.
///
///     <Sheet name="A" filter="<x>,<x>,y"> <Sheet name = "B"> if < 5 <b>
///                                 ^^^                                      DuplicateField
///                                     ^                                    StrayFilterText
///                                                ^^^^^^^^^^                   SpaceAroundEquals, an error
///                                                               ^^^^       Restart
///
/// Takes time linear in the text, but for the ordering of fields and of names that aren't allowed.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<MarkupFault> FindMarkupFaults(const TString& tooltipText);

} // namespace corvanemarkup::VizInTooltip
