#pragma once

/// Converts between views of a part of a text and source ranges.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Returns the range of `part`, a view of a part of `text`.
[[nodiscard]] inline CorvaneCharRange RangeOf(TextView part, TextView text)
{
    const std::int64_t start = part.data() - text.data();
    return {start, start + static_cast<std::int64_t>(part.size())};
}

/// Returns the part of `text` in that range. REQUIRES: `IsIn(text, range)`.
[[nodiscard]] inline TextView PartOf(TextView text, CorvaneCharRange range)
{
    return text.substr(static_cast<std::size_t>(range.start),
                       static_cast<std::size_t>(range.end - range.start));
}

/// Returns whether 0 <= start <= end <= the length of the text.
[[nodiscard]] inline bool IsIn(TextView text, CorvaneCharRange range)
{
    return 0 <= range.start && range.start <= range.end &&
           range.end <= static_cast<std::int64_t>(text.size());
}

} // namespace corvanemarkup::Internal
