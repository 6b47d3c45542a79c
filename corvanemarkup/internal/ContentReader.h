#pragma once

/// Reads the attributes of an element's content one by one, even if `VizInTooltipProperties::FromMarkupText`
/// rejects the content, and the fields of a filter with their source ranges.

#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/TextView.h>
#include <corvanemarkup/internal/TokenReader.h>

#include <algorithm>
#include <string>

namespace corvanemarkup::Internal {

/// The parts of an attribute, as views of the source text.
struct AttributeParts
{
    TextView Whole;
    TextView Name;       ///< up to the first `=`; the whole attribute if there is none
    TextView RawValue;   ///< the rest without its quotes; empty, at the end, if there is no `=`
    bool IsNameAndValue; ///< whether it consists of a name and a quoted value
};

/// Splits an attribute, whose quotes may be unterminated.
[[nodiscard]] AttributeParts SplitIntoParts(TextView attribute, bool isUnterminated);

class ContentReader
{
public:
    explicit ContentReader(TextView content) : m_tokens(content) {}

    /// Sets `parts` to the next attribute; returns false at the end. An attribute with unterminated quotes is
    /// the last one and extends to the end. A content without a space has no attributes.
    bool Next(AttributeParts& parts);

private:
    TokenReader m_tokens;
    bool m_isFinished = false;
};

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

} // namespace corvanemarkup::Internal
