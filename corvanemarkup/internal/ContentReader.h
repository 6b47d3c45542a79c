#pragma once

/// Reading the attributes of an element's content one after the other, also of a content that
/// `VizInTooltipProperties::FromMarkupText` refuses.

#include <corvanemarkup/internal/AttributeReader.h>
#include <corvanemarkup/internal/DelimiterSearch.h>
#include <corvanemarkup/internal/FilterFields.h>
#include <corvanemarkup/internal/TextView.h>
#include <corvanemarkup/internal/TokenReader.h>

#include <string>

namespace corvanemarkup::Internal {

/// The parts of an attribute where they stand in the text.
struct AttributeParts
{
    TextView Whole;
    TextView Name;         ///< up to the first `=`; all of the attribute if there is none
    TextView EscapedValue; ///< the rest without its quotes; empty, at the end, if there is no `=`
    bool IsNameAndValue;   ///< whether it is read as a name and a quoted value
};

/// The parts of an attribute, the quotes of which are open or not.
[[nodiscard]] AttributeParts SplitIntoParts(TextView attribute, bool isOpen);

class ContentReader
{
public:
    explicit ContentReader(TextView content) : m_tokens(content) {}

    /// Sets `parts` to the next attribute; false at the end. An attribute whose quotes are open is the last
    /// and runs to the end. A content without a space has no attributes.
    bool Next(AttributeParts& parts);

private:
    TokenReader m_tokens;
    bool m_isFinished = false;
};

/// Calls `visit` with each field of a filter value, brackets included: as it stands in the text, and as
/// meant. What is meant may lie in `scratch`, and is gone when this is used again.
template <typename Visit>
void ForEachFieldInText(TextView escapedValue, std::u16string& scratch, Visit visit)
{
    const bool hasQuotes = FindFirstOf<u'"'>(escapedValue, 0) != NotFound;
    scratch.clear();
    if (hasQuotes)
        AppendUnescaped(escapedValue, scratch);
    const TextView value = hasQuotes ? TextView(scratch) : escapedValue;

    std::size_t meant = 0; // a position in the value, and where that stands in the text
    std::size_t inText = 0;
    const auto moveTo = [&](std::size_t position) {
        if (!hasQuotes)
            return position;
        for (; meant < position; ++meant)
            inText += escapedValue[inText] == u'"' && IsDoubled(escapedValue, inText) ? 2 : 1;
        return inText;
    };
    ForEachField(value, [&](const ElementBounds& field) {
        const std::size_t start = moveTo(field.Start);
        const std::size_t end = moveTo(field.End + 1);
        visit(escapedValue.substr(start, end - start),
              value.substr(field.Start, field.End + 1 - field.Start));
    });
}

} // namespace corvanemarkup::Internal
