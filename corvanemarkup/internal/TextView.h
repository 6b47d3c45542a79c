#pragma once

/// All reading works on a view of the text: nothing is copied until there is a result.

#include <corvaneplatform/TString.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace corvanemarkup::Internal {

using TextView = std::u16string_view;

/// The position that stands for "not found", the -1 of the public interface.
constexpr std::size_t NotFound = TextView::npos;

inline TextView ViewOf(const TString& text)
{
    return TextView(text.constData(), static_cast<std::size_t>(text.length()));
}

/// Equality by comparing memory, which `std::u16string_view` doesn't.
inline bool AreSame(TextView left, TextView right)
{
    return left.size() == right.size() &&
           std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0;
}

/// Whether `part` stands at `position`, which may be at most the length of the text.
inline bool StandsAt(TextView text, std::size_t position, TextView part)
{
    return text.size() - position >= part.size() &&
           std::memcmp(text.data() + position, part.data(), part.size() * sizeof(char16_t)) == 0;
}

constexpr std::size_t UnitsInWord = sizeof(std::uint64_t) / sizeof(char16_t);

/// Four code units as one number, the first in the lowest bits. Compilers make one load of it where they can.
constexpr std::uint64_t WordAt(const char16_t* units)
{
    return std::uint64_t(units[0]) | std::uint64_t(units[1]) << 16 | std::uint64_t(units[2]) << 32 |
           std::uint64_t(units[3]) << 48;
}

/// `text` must be no longer than a `TString` can be, as each part of one is.
inline TString ToString(TextView text)
{
    return TString(text.data(), static_cast<int>(text.size()));
}

/// A position as the public interface tells it. `position` must be `NotFound` or lie in a `TString`.
inline int ToOffset(std::size_t position)
{
    return position == NotFound ? -1 : static_cast<int>(position);
}

/// A position from the public interface: `NotFound` if it is negative.
inline std::size_t FromOffset(int offset)
{
    return offset < 0 ? NotFound : static_cast<std::size_t>(offset);
}

} // namespace corvanemarkup::Internal
