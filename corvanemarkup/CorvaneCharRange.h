#pragma once

/// Source ranges.

#include <cstdint>

namespace corvanemarkup {

/// A half-open range of UTF-16 code units.
///
///     a<b>c
///      ^  ^
///      |  end: 4, one past the last
///      start: 1, the first
struct CorvaneCharRange
{
    std::int64_t start;
    std::int64_t end;
};

} // namespace corvanemarkup
