#pragma once

/// Source ranges of a tooltip: its elements and their kinds, their attributes, filter fields, and the names
/// of sheets and fields.
///
/// Ranges are half-open, in UTF-16 code units of the text that is passed; a doubled quote or bracket is two
/// of them.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <utility>
#include <vector>

namespace corvanemarkup::VizInTooltip {

/// Returns the part of `text` in that range. Positions outside the text are clamped to it; a range that ends
/// before it starts is empty.
[[nodiscard]] CORVANEMARKUP_EXPORT TString TextIn(const TString& text, CorvaneCharRange range);

/// How an element ends.
enum class ElementEnd : std::int32_t {
    Bracket = 0,     ///< with its `>`
    Interrupted = 1, ///< abandoned at a further `<`, where another one starts
    Unterminated = 2 ///< not at all, up to the end of the text
};

/// An element and its content:
///
///     See <b>the <Sheet name="a>b">
///         ^^^    ^^^^^^^^^^^^^^^^^^     Element, with its brackets
///          ^      ^^^^^^^^^^^^^^^^      Content, without
struct ElementRanges
{
    /// Up to the further `<` if interrupted, to the end of the text if unterminated.
    CorvaneCharRange Element;
    CorvaneCharRange Content;
    ElementEnd End;
};

/// Returns an element for every `<` at which the walk over a tooltip starts one, in text order. Those that
/// end with a bracket are the elements that `CollectMarkupElements` finds. None overlaps another. At most one
/// is unterminated, the last.
///
///     <b> if < 5, see <Total> <Sheet name="S
///     ^^^                                       Bracket
///            ^^^^^^^^^                          Interrupted
///                     ^^^^^^^                   Bracket
///                             ^^^^^^^^^^^^^^    Unterminated
///
/// Takes time linear in the text, and memory for the result only.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<ElementRanges> FindElementRanges(const TString& tooltipText);

/// What an element is. It is called Sheet if its content begins with `Sheet`, in any ASCII letter case,
/// followed by white space or the end of the content. It is readable if
/// `VizInTooltipProperties::FromMarkupText` returns a value for its content, and valid if that value is valid
/// and the element ends with its bracket.
enum class ElementKind : std::int32_t {
    Plain = 0,          ///< not called Sheet
    Sheet = 1,          ///< valid
    InvalidSheet = 2,   ///< readable, but not valid
    UnreadableSheet = 3 ///< called Sheet, but not readable, such as `<Sheet name=S>` or a field `<Sheet 2>`
};

/// Returns the kind of one of the elements that `FindElementRanges` returns for that text. Takes time linear
/// in the element. A content range outside the text gives `Plain`.
[[nodiscard]] CORVANEMARKUP_EXPORT ElementKind GetElementKind(const TString& text,
                                                              const ElementRanges& element);

/// One attribute and its parts:
///
///     Sheet name="S" filter="<a>,<b>"
///                    ^^^^^^^^^^^^^^^^      Attribute
///                    ^^^^^^                Name
///                            ^^^^^^^       Value
///                            ^^^ ^^^       Fields
struct AttributeRanges
{
    CorvaneCharRange Attribute;
    /// Up to the first `=`; the whole attribute if there is none.
    CorvaneCharRange Name;
    /// The raw value: what follows the `=`, without a quote at its start and the closing quote at its end.
    /// Empty, at the end of the attribute, if there is no `=`.
    CorvaneCharRange Value;
    /// With the unescaped value. None if the attribute isn't a name and a quoted value.
    boost::optional<AttributeNameAndValue> NameAndValue;
    /// Of an attribute named `filter`, in text order: the range of each field, brackets included, and its
    /// unescaped content, as `VizInTooltipProperties::GetFilterFields` returns it.
    std::vector<std::pair<CorvaneCharRange, TString>> Fields;
};

/// Returns the attributes of an element in text order, whatever the element is called: the field
/// `<Total Sales>` has one, `Sales`. `contentRange` is the range of its content in `text`. Returns nothing
/// unless 0 <= start <= end <= the length of the text.
///
/// Of a content that `VizInTooltipProperties::FromMarkupText` accepts, the names, values and fields are those
/// that it returns; any other is read as far as possible. An attribute with unterminated quotes is the last
/// one, extends to the end of the content and has no `NameAndValue`. A content without a space has no
/// attributes.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<AttributeRanges>
FindAttributeRanges(const TString& text, CorvaneCharRange contentRange);

enum class NameKind : std::int32_t { Sheet = 0, Field = 1 };

/// Whether a name has an effect, or why not.
enum class NameStatus : std::int32_t {
    /// The name of a valid sheet element or a field in its filter, or the content of an element that
    /// `IsFieldName` calls plain:
    /// `RenameSheetsAndFields` renames it, at least to any name that consists of letters.
    Reachable = 0,
    InInvalidSheet = 1,    ///< in an element called Sheet that isn't valid
    InUnclosedElement = 2, ///< in an element that is interrupted or unterminated
    WithoutBrackets = 3    ///< in a valid element's filter, outside fields, such as `filter="Region"`
};

/// An occurrence of a name.
struct SheetOrFieldName
{
    NameKind Kind;
    NameStatus Status;
    TString Name;             ///< unescaped
    CorvaneCharRange Range;   ///< without quotes and brackets
    CorvaneCharRange Element; ///< the element that contains it, as in `ElementRanges::Element`
};

/// Returns every name of a sheet and of a field, ascending by the start of its range:
///
///     <Year> <Sheet name="A" filter="<x>, y"> <Sheet name=B> <Sheet name="C"
///      ^^^^                                                                    Field, Reachable
///                         ^                                                    Sheet, Reachable
///                                     ^                                        Field, Reachable
///                                         ^                                    Field, WithoutBrackets
///                                                         ^                    Sheet, InInvalidSheet
///                                                                         ^    Sheet, InUnclosedElement
///
/// In an element called Sheet that isn't valid, names are found as its author probably meant them. One that
/// isn't readable can also be a field itself, such as `<sheet name="A">`: the content is a reachable field
/// then, and the sheet another name within it. A sheet name is never empty; outside fields, only what
/// `IsFieldName` accepts is a name.
///
/// Each edit of `RenameSheetsAndFields` replaces the range of a reachable name. Takes time linear in the
/// text.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<SheetOrFieldName>
FindSheetAndFieldNames(const TString& tooltipText);

} // namespace corvanemarkup::VizInTooltip
