#pragma once

/// Views of texts, their white space, and conversions between the types of the public interface and those of
/// the internal layer. All parsing works on views: nothing is copied before there is a result.

#include <corvanemarkup/CorvaneCharRange.h>
#include <corvaneplatform/TString.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace corvanemarkup::Internal {

using TextView = std::u16string_view;

/// No position; -1 in the public interface.
constexpr std::size_t NotFound = TextView::npos;

inline TextView ViewOf(const TString& text)
{
    return TextView(text.constData(), static_cast<std::size_t>(text.length()));
}

/// Compares memory, which is faster than `std::u16string_view::operator==`.
inline bool AreSame(TextView left, TextView right)
{
    return left.size() == right.size() &&
           std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0;
}

/// Returns whether `text` contains `part` at `position`, which must be at most the length of the text.
inline bool MatchesAt(TextView text, std::size_t position, TextView part)
{
    return text.size() - position >= part.size() &&
           std::memcmp(text.data() + position, part.data(), part.size() * sizeof(char16_t)) == 0;
}

constexpr std::size_t UnitsInWord = sizeof(std::uint64_t) / sizeof(char16_t);

/// Returns four code units as one number, the first in the lowest bits. Compiles to a single load where
/// possible.
constexpr std::uint64_t WordAt(const char16_t* units)
{
    return std::uint64_t(units[0]) | std::uint64_t(units[1]) << 16 | std::uint64_t(units[2]) << 32 |
           std::uint64_t(units[3]) << 48;
}

/// `text` must not be longer than a `TString` can be.
inline TString ToString(TextView text)
{
    return TString(text.data(), static_cast<int>(text.size()));
}

/// Converts a position for the public interface. It must be `NotFound` or a position in a `TString`.
inline int ToOffset(std::size_t position)
{
    return position == NotFound ? -1 : static_cast<int>(position);
}

/// Converts a position from the public interface: a negative one to `NotFound`.
inline std::size_t FromOffset(int offset)
{
    return offset < 0 ? NotFound : static_cast<std::size_t>(offset);
}

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

/// Returns whether the platform's `TString::Trim` strips `unit`. The platform isn't called for printable
/// ASCII characters, which nearly all units are.
[[nodiscard]] inline bool IsWhiteSpace(char16_t unit)
{
    if (unit >= u' ' && unit <= u'~')
        return unit == u' ';
    return TString(&unit, 1).Trim().empty();
}

/// Returns the first position at or after `from` without white space; the length of the text if there is
/// none.
[[nodiscard]] inline std::size_t SkipWhiteSpace(TextView text, std::size_t from)
{
    while (from < text.size() && IsWhiteSpace(text[from]))
        ++from;
    return from;
}

/// Returns `text` without white space at its ends.
[[nodiscard]] inline TextView Trimmed(TextView text)
{
    text.remove_prefix(SkipWhiteSpace(text, 0));
    while (!text.empty() && IsWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace corvanemarkup::Internal
