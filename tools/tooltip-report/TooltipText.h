#pragma once

/// Conversions between the program's texts and the UTF-8 of its input and output.

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvaneplatform/TString.h>

#include <ostream>
#include <string>

namespace tooltipreport {

/// Converts `bytes`, except the first `skipped` ones. Throws `std::runtime_error`, with `source` in its
/// message, if they aren't UTF-8, with the byte offset of the first error, or if the text is too long.
[[nodiscard]] TString FromUtf8(const std::string& bytes, const std::string& source, std::size_t skipped = 0);

/// Precondition: `text` is well-formed UTF-16, as are texts that come from UTF-8 and are cut next to ASCII
/// characters.
[[nodiscard]] std::string ToUtf8(const TString& text);

/// Writes a text as UTF-8, in constant memory.
void WriteUtf8(std::ostream& out, const TString& text);

/// Returns a printable replacement for a control character, line separator or malformed code point: its
/// symbol, or U+FFFD. Returns any other character unchanged.
[[nodiscard]] char32_t Symbol(char32_t character);

/// Applies `Symbol` to each character, which puts the text on one line. Malformed UTF-8 becomes U+FFFD.
[[nodiscard]] std::string OnOneLine(const std::string& utf8);

/// Returns a name for display: on one line, in quotes, with quotes in it doubled as in a tooltip.
[[nodiscard]] std::string Quoted(const std::string& name);
[[nodiscard]] std::string Quoted(const TString& name);

/// Returns a number with a noun, such as `1 file` and `2 files`.
[[nodiscard]] std::string Counted(std::size_t count, const std::string& what);

} // namespace tooltipreport
