#pragma once

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvanemarkup/internal/TextView.h>

namespace corvanemarkup::Internal {

/// Where `part`, a view of a part of `text`, stands in it.
[[nodiscard]] inline CorvaneCharRange RangeOf(TextView part, TextView text)
{
    const std::int64_t start = part.data() - text.data();
    return {start, start + static_cast<std::int64_t>(part.size())};
}

/// What stands in a range that lies in `text`.
[[nodiscard]] inline TextView PartOf(TextView text, CorvaneCharRange range)
{
    return text.substr(static_cast<std::size_t>(range.start),
                       static_cast<std::size_t>(range.end - range.start));
}

/// Whether 0 <= start <= end <= the length of the text.
[[nodiscard]] inline bool IsIn(TextView text, CorvaneCharRange range)
{
    return 0 <= range.start && range.start <= range.end &&
           range.end <= static_cast<std::int64_t>(text.size());
}

} // namespace corvanemarkup::Internal
