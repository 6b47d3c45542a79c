#pragma once

/// The valid sheet elements of a text, on views of it. What `VizInTooltipProperties` tells of one element, in
/// a form that costs no allocation.

#include <corvanemarkup/TextView.h>

#include <boost/optional.hpp>

namespace corvanemarkup::Internal {

/// A valid sheet element. The values are as they stand in the text, with doubled quotes.
struct SheetElement
{
    TextView Content;
    TextView EscapedName;
    boost::optional<TextView> EscapedFilter;
};

/// None unless `content` is a valid sheet element.
[[nodiscard]] boost::optional<SheetElement> ReadValidSheetElement(TextView content);

/// Walks over the valid sheet elements of a tooltip, in text order: those of the elements that a walk over
/// all of them, from the end of each to the next, comes by.
class SheetElementWalk
{
public:
    explicit SheetElementWalk(TextView tooltipText) : m_text(tooltipText) {}

    /// Sets `element` to the next valid sheet element; false at the end.
    bool Next(SheetElement& element);

private:
    [[nodiscard]] bool IsEscaped(std::size_t last) const;
    bool ReadRegular(std::size_t start, SheetElement& element);
    template <std::size_t size>
    bool Skip(const char16_t (&literal)[size], std::size_t& position) const;

    TextView m_text;
    std::size_t m_position = 0;
};

} // namespace corvanemarkup::Internal
