#pragma once

/// The valid sheet elements of a text, on views of it. What `VizInTooltipProperties` tells of them, in a form
/// that costs no allocation.

#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/SheetAttributeValues.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// A valid sheet element.
struct SheetElement
{
    using Attribute = VizInTooltip::Impl::SheetMarkupAttribute;

    TextView Content;
    SheetAttributeValues Values;

    [[nodiscard]] TextView EscapedName() const { return Values[Attribute::Name]; }
    [[nodiscard]] TString Name() const { return Unescape(EscapedName(), Values.MayHoldQuotes); }
    [[nodiscard]] bool HasFilter() const { return Values.Has(Attribute::Filter); }
    [[nodiscard]] TextView EscapedFilter() const { return Values[Attribute::Filter]; }
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
