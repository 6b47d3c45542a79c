#pragma once

/// The valid sheet elements of a text, on views of it. What `VizInTooltipProperties` tells of them, in a form
/// that costs no allocation.

#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// A valid sheet element. The values are as they stand in the text, with doubled quotes.
struct SheetElement
{
    TextView Content;
    TextView EscapedName;
    TextView EscapedFilter; ///< has no data if there is no `filter`
};

/// Whether `content` is a valid sheet element. Sets `element` to it then. The general way: reads any content,
/// token by token.
[[nodiscard]] bool ReadSheetElement(TextView content, SheetElement& element);

/// Walks over the valid sheet elements of a tooltip, in text order: those of the elements that a walk over
/// all of them, from the end of each to the next, comes by.
class SheetElementWalk
{
public:
    explicit SheetElementWalk(TextView tooltipText) : m_text(tooltipText) {}

    /// Sets `element` to the next valid sheet element; false at the end.
    bool Next(SheetElement& element);

private:
    bool ReadElementAt(std::size_t start, SheetElement& element);

    TextView m_text;
    std::size_t m_position = 0;
};

} // namespace corvanemarkup::Internal
