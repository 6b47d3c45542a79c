#pragma once

/// Reads the valid sheet elements of a text as views: the queries of `VizInTooltipProperties`, without
/// allocations.

#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/SheetAttributeValues.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

struct SheetElement
{
    using Attribute = VizInTooltip::Impl::SheetMarkupAttribute;

    TextView Content;
    SheetAttributeValues Values;

    [[nodiscard]] TextView RawName() const { return Values[Attribute::Name]; }
    [[nodiscard]] TString Name() const { return Unescape(RawName(), Values.MayHoldQuotes); }
    [[nodiscard]] bool HasFilter() const { return Values.Has(Attribute::Filter); }
    [[nodiscard]] TextView RawFilter() const { return Values[Attribute::Filter]; }
};

/// Returns whether `content` is a valid sheet element, and sets `element` to it; `element` is unspecified
/// otherwise. This is the general path: it reads any content, token by token.
[[nodiscard]] bool ReadSheetElement(TextView content, SheetElement& element);

/// Returns the first position at or after `from` of a `<` that is followed by the name of a sheet element and
/// a space; or `NotFound`. The `<` may be escaped.
[[nodiscard]] std::size_t FindSheetStart(TextView text, std::size_t from);

/// Walks over the valid sheet elements of a tooltip in text order: those among the elements that
/// `CollectMarkupElements` finds.
class SheetElementWalk
{
public:
    explicit SheetElementWalk(TextView tooltipText) : m_text(tooltipText) {}

    /// Sets `element` to the next valid sheet element; returns false at the end.
    bool Next(SheetElement& element);

private:
    bool ReadElementAt(std::size_t start, SheetElement& element);

    TextView m_text;
    std::size_t m_position = 0;
};

} // namespace corvanemarkup::Internal
