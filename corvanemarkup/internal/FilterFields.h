#pragma once

/// The fields of a filter value, such as `<Region>,<Year>`.

#include <corvanemarkup/internal/ElementLookup.h>
#include <corvanemarkup/internal/WrittenForm.h>

namespace corvanemarkup::Internal {

/// Calls `visit` with the bounds of each field from `offset` on, in text order: the elements that
/// `FindCharRangesOfKnownMarkupElements` finds in the value when all are known. What stands between them
/// plays no part.
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

/// The same for all fields.
template <typename Visit>
void ForEachField(TextView filterValue, Visit visit)
{
    const std::size_t read = ReadWrittenFields(filterValue, [&](TextView content) {
        const auto start = static_cast<std::size_t>(content.data() - filterValue.data()) - 1;
        visit(ElementBounds{start, start + 1 + content.size()});
    });
    ForEachFieldFrom(read, filterValue, visit);
}

} // namespace corvanemarkup::Internal
