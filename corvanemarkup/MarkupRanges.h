#pragma once

/// What stands where in a tooltip: its elements, their attributes, and the fields of a filter.
///
/// All ranges are half-open and count UTF-16 code units of the text that is passed, doubled quotes and
/// brackets as two.

#include <corvanemarkup/AttributeNamesAndValues.h>
#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/Export.h>
#include <corvaneplatform/TString.h>

#include <boost/optional.hpp>

#include <cstdint>
#include <utility>
#include <vector>

namespace corvanemarkup::VizInTooltip {

/// How an element ends.
enum class ElementEnd : std::int32_t {
    Bracket,  ///< with its `>`
    Restart,  ///< given up at a further `<`, where another one starts
    EndOfText ///< not at all
};

/// An element and its content:
///
///     See <b>the <Sheet name="a>b">
///         ^^^    ^^^^^^^^^^^^^^^^^^     Element, with its brackets
///          ^      ^^^^^^^^^^^^^^^^      Content, without
struct ElementRanges
{
    CorvaneCharRange Element; ///< given up, up to the further `<`; without end, to the end of the text
    CorvaneCharRange Content;
    ElementEnd End;
};

/// Every `<` that the walk from element to element takes for the start of one, in text order. Those that end
/// with a bracket are the elements that `CollectMarkupElements` finds. None overlaps another, and at most one
/// has no end, the last.
///
///     <b> if < 5, see <Total> <Sheet name="S
///     ^^^                                       Bracket
///            ^^^^^^^^^                          Restart
///                     ^^^^^^^                   Bracket
///                             ^^^^^^^^^^^^^^    EndOfText
///
/// Takes time linear in the text, and memory for the result alone.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<ElementRanges> FindElementRanges(const TString& tooltipText);

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
    /// Up to the first `=`; all of the attribute if there is none.
    CorvaneCharRange Name;
    /// What follows the `=`, without a quote at its start and the closing quote at its end. Empty, at the end
    /// of the attribute, if there is no `=`.
    CorvaneCharRange Value;
    /// As meant. None if the attribute isn't a name and a quoted value.
    boost::optional<AttributeNameAndValue> NameAndValue;
    /// Of an attribute called `filter`, in text order: where each field stands, brackets included, and its
    /// content as meant, as `VizInTooltipProperties::GetFilterFields` gives it.
    std::vector<std::pair<CorvaneCharRange, TString>> Fields;
};

/// The attributes of an element in text order, whatever the element is called: the field `<Total Sales>` has
/// one, `Sales`. `contentRange` is where its content stands in `text`. Nothing unless 0 <= start <= end <=
/// the length of the text.
///
/// Reads what it can where `VizInTooltipProperties::FromMarkupText` refuses the content. Where that gives an
/// element, the names, values and fields are that element's. An attribute whose quotes are open is the last
/// one, runs to the end of the content and has no `NameAndValue`. A content without a space has no
/// attributes.
[[nodiscard]] CORVANEMARKUP_EXPORT std::vector<AttributeRanges>
FindAttributeRanges(const TString& text, CorvaneCharRange contentRange);

} // namespace corvanemarkup::VizInTooltip
