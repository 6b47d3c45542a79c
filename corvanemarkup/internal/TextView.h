#pragma once

/// Views of texts, and conversions between the types of the public interface and those of the internal layer.
/// All parsing works on views: nothing is copied before there is a result.

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

} // namespace corvanemarkup::Internal
