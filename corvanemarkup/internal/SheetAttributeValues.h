#pragma once

#include <corvanemarkup/SheetMarkupFormat.h>
#include <corvanemarkup/internal/TextView.h>

#include <iterator>

namespace corvanemarkup::Internal {

/// The values of a sheet element's attributes as they stand in the text, with doubled quotes. That of an
/// attribute that isn't there has no data, unlike one that is empty.
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

    /// False only if no value holds a quote, so that each means what stands there.
    bool MayHoldQuotes = false;

private:
    TextView m_values[std::size(VizInTooltip::Impl::SheetMarkupAttributeLiterals)];
};

} // namespace corvanemarkup::Internal
