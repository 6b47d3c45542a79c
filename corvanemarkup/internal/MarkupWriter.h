#pragma once

/// The written form of attributes, `name="value"`: each quote of the value doubled, and nothing else escaped.
///
/// A text is measured first and written then, so that it is allocated once, and so that one too long is
/// refused before memory is asked for.

#include <corvanemarkup/internal/TextView.h>

#include <cstdint>
#include <string>

namespace corvanemarkup::Internal {

/// Appends a value as it stands between its quotes.
void AppendEscaped(TextView value, std::u16string& text);
[[nodiscard]] std::uint64_t EscapedLength(TextView value);

[[nodiscard]] std::uint64_t WrittenLength(TextView name, TextView value);
void AppendWritten(TextView name, TextView value, std::u16string& text);

/// Throws `std::length_error` if a text of `length` code units is longer than one may be.
void CheckTextLength(std::uint64_t length);

/// An empty text with room for `length` code units, which `CheckTextLength` accepts.
[[nodiscard]] std::u16string TextWithRoomFor(std::uint64_t length);

} // namespace corvanemarkup::Internal
