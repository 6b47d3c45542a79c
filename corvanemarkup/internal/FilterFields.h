#pragma once

/// The fields of a filter value, such as `<Region>,<Year>`.

#include <corvanemarkup/internal/ElementLookup.h>
#include <corvanemarkup/internal/WrittenForm.h>

namespace corvanemarkup::Internal {

/// Calls `visit` with the bounds of each field, in text order: the elements that
/// `FindCharRangesOfKnownMarkupElements` finds in the value when all are known. What stands between them
/// plays no part.
template <typename Visit>
void ForEachField(TextView filterValue, Visit visit)
{
    ElementLookup elements(filterValue);
    for (std::size_t offset = 0; offset < filterValue.size();) {
        ElementBounds field;
        if (!ReadWrittenField(filterValue, offset, field))
            field = elements.FindFrom(offset);
        if (field.Found())
            visit(field);
        offset = field.Found() ? field.End + 1 : offset + 1;
    }
}

} // namespace corvanemarkup::Internal
