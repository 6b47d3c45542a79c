#pragma once

/// Writes the canonical form of attributes, `name="value"`, with each quote in the value doubled and nothing
/// else escaped.
///
/// Callers compute the length of a text before they write it: it is allocated once, and one that is too long
/// is rejected before any allocation.

#include <corvanemarkup/internal/TextView.h>

#include <cstdint>
#include <string>

namespace corvanemarkup::Internal {

/// Appends the raw value: `value` with each quote doubled.
void AppendEscaped(TextView value, std::u16string& text);
[[nodiscard]] std::uint64_t EscapedLength(TextView value);

[[nodiscard]] std::uint64_t CanonicalLength(TextView name, TextView value);
void AppendCanonical(TextView name, TextView value, std::u16string& text);

/// Throws `std::length_error` if `length` code units are more than `INT_MAX`.
void CheckTextLength(std::uint64_t length);

/// Returns an empty text with a capacity of `length` code units. Throws like `CheckTextLength`.
[[nodiscard]] std::u16string TextWithRoomFor(std::uint64_t length);

} // namespace corvanemarkup::Internal
