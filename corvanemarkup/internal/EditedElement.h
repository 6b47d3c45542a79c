#pragma once

/// Whether an element that is edited still reads as what it was, in its tooltip.

#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/ElementWalk.h>
#include <corvanemarkup/internal/TextView.h>

#include <string>
#include <vector>

namespace corvanemarkup::Internal {

/// The attributes of an element that `VizInTooltipProperties::FromMarkupText` reads.
struct ReadableElement
{
    std::vector<AttributeParts> Attributes;
    std::size_t Filter = NotFound; ///< the index of the first `filter`
};

/// False if it doesn't read it.
[[nodiscard]] bool ReadElement(TextView content, ReadableElement& element);

/// What is expected of an element whose content becomes `NewContent`.
struct ExpectedElement
{
    std::u16string NewContent;
    std::size_t AttributeCount;
    std::size_t
        Filter; ///< the index of the attribute with these fields, as meant; `NotFound` if there is none
    std::vector<TextView> Fields;
};

/// Whether it becomes that: it ends where it should, with as many attributes, and these fields.
///
/// To look at the one element is enough. What stands in front of an element ends, or is given up, before it;
/// a walk starts afresh after it; and the look-ahead of a `<` never reads past the next bracket that counts.
[[nodiscard]] bool ReadsAs(const WalkedElement& old, const ExpectedElement& expected);

/// The same for a plain element: whether its bracket still ends it when it gets the content `newContent`,
/// which is a field's name.
[[nodiscard]] bool ReadsAsPlain(const WalkedElement& old, TextView newContent);

} // namespace corvanemarkup::Internal
