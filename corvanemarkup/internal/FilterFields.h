#pragma once

/// Finds the fields of a filter value, such as `<Region>,<Year>`, and replaces some of them.

#include <corvanemarkup/internal/CanonicalForm.h>
#include <corvanemarkup/internal/ContentReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/ElementLookup.h>

#include <algorithm>
#include <string>
#include <vector>

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

/// Calls `visit(raw, unescaped)` with each field of a raw filter value, including its brackets, in text
/// order. `unescaped` may point into `scratch`; it is valid until `scratch` is modified.
template <typename Visit>
void ForEachRawField(TextView rawValue, std::u16string& scratch, Visit visit)
{
    const bool hasQuotes = FindFirstOf<u'"'>(rawValue, 0) != NotFound;
    scratch.clear();
    if (hasQuotes)
        AppendUnescaped(rawValue, scratch);
    const TextView value = hasQuotes ? TextView(scratch) : rawValue;

    std::size_t inValue = 0; // a position in the unescaped value, and the corresponding one in the raw value
    std::size_t inRaw = 0;
    const auto moveTo = [&](std::size_t position) {
        if (!hasQuotes)
            return position;
        for (; inValue < position; ++inValue)
            inRaw += rawValue[inRaw] == u'"' && IsDoubled(rawValue, inRaw) ? 2 : 1;
        return inRaw;
    };
    ForEachField(value, [&](const ElementBounds& field) {
        const std::size_t start = moveTo(field.Start);
        const std::size_t end = moveTo(field.End + 1);
        visit(rawValue.substr(start, end - start), value.substr(field.Start, field.End + 1 - field.Start));
    });
}

/// Like `ForEachRawField`, and also calls `visitStray` with each piece of raw text outside fields. Pieces are
/// separated by commas, exclude surrounding spaces and aren't empty. All calls are in text order.
template <typename VisitField, typename VisitStray>
void ForEachFilterPart(TextView rawValue, std::u16string& scratch, VisitField visitField,
                       VisitStray visitStray)
{
    std::size_t position = 0;
    const auto visitPieces = [&](std::size_t end) {
        while (position < end) {
            const std::size_t comma = std::min(rawValue.substr(0, end).find(u',', position), end);
            const TextView piece = rawValue.substr(position, comma - position);
            const std::size_t first = piece.find_first_not_of(u' ');
            if (first != NotFound)
                visitStray(piece.substr(first, piece.find_last_not_of(u' ') + 1 - first));
            position = comma + 1;
        }
    };
    ForEachRawField(rawValue, scratch, [&](TextView raw, TextView unescaped) {
        const auto start = static_cast<std::size_t>(raw.data() - rawValue.data());
        visitPieces(start);
        position = start + raw.size();
        visitField(raw, unescaped);
    });
    visitPieces(rawValue.size());
}

/// Returns the fields with `field` in place of those from `first` to `end`, exclusive; if `first` is
/// `NotFound`, at the end, and nowhere else. The exclusive field goes; inserted, it is the only one.
template <typename Field>
[[nodiscard]] std::vector<Field> InsertField(std::vector<Field> fields, std::size_t first, std::size_t end,
                                             const Field& field, const Field& exclusiveField)
{
    const auto erase = [&fields](const Field& erased) {
        fields.erase(std::remove(fields.begin(), fields.end(), erased), fields.end());
    };
    if (field == exclusiveField)
        return {field};
    if (first == NotFound) {
        erase(field);
        first = end = fields.size();
    }
    const auto place = fields.erase(fields.begin() + static_cast<std::ptrdiff_t>(first),
                                    fields.begin() + static_cast<std::ptrdiff_t>(end));
    fields.insert(place, field);
    erase(exclusiveField); // not the new one
    return fields;
}

} // namespace corvanemarkup::Internal
