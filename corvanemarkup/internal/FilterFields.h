#pragma once

/// Finds the fields of an unescaped filter value, such as `<Region>,<Year>`.

#include <corvanemarkup/internal/CanonicalForm.h>
#include <corvanemarkup/internal/ElementLookup.h>

namespace corvanemarkup::Internal {

/// Calls `visit` with the bounds of each field at or after `offset`, in text order: the elements that
/// `FindCharRangesOfKnownMarkupElements` finds if its predicate accepts all.
template <typename Visit>
void ForEachFieldFrom(std::size_t offset, TextView filterValue, Visit visit)
{
    ElementLookup elements(filterValue);
    while (offset < filterValue.size()) {
        const ElementBounds field = elements.FindFrom(offset);
        if (field.Found())
            visit(field);
        offset = field.Found() ? field.End + 1 : offset + 1;
    }
}

/// Calls `visit` with the bounds of each field, in text order.
template <typename Visit>
void ForEachField(TextView filterValue, Visit visit)
{
    const std::size_t read = ReadCanonicalFields(filterValue, [&](TextView content) {
        const auto start = static_cast<std::size_t>(content.data() - filterValue.data()) - 1;
        visit(ElementBounds{start, start + 1 + content.size()});
    });
    ForEachFieldFrom(read, filterValue, visit);
}

} // namespace corvanemarkup::Internal
