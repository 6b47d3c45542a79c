#pragma once

/// The raw values of the attributes of a sheet element.

#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/TextView.h>

#include <iterator>

namespace corvanemarkup::Internal {

/// Maps each attribute to its raw value. The view of a missing attribute has no data, unlike an empty value.
class SheetAttributeValues
{
public:
    using Attribute = VizInTooltip::Impl::SheetMarkupAttribute;

    [[nodiscard]] bool Has(Attribute attribute) const { return (*this)[attribute].data() != nullptr; }

    [[nodiscard]] TextView& operator[](Attribute attribute)
    {
        return m_values[static_cast<std::size_t>(attribute)];
    }
    [[nodiscard]] const TextView& operator[](Attribute attribute) const
    {
        return m_values[static_cast<std::size_t>(attribute)];
    }

    /// False only if no value contains a quote: each raw value equals its unescaped value then.
    bool MayHoldQuotes = false;

private:
    TextView m_values[std::size(VizInTooltip::Impl::SheetMarkupAttributeLiterals)];
};

} // namespace corvanemarkup::Internal
