#pragma once

/// How texts come into the program and leave it. All of them are UTF-8 outside.

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvaneplatform/TString.h>

#include <ostream>
#include <string>

namespace tooltipreport {

/// `bytes` as text, without the first `skipped` of them. Throws with a message that tells the byte offset of
/// the first fault, and that it lies in `source`.
[[nodiscard]] TString FromUtf8(const std::string& bytes, const std::string& source, std::size_t skipped = 0);

/// `text` must be well formed, as all texts are that come from UTF-8 and are cut next to ASCII characters.
[[nodiscard]] std::string ToUtf8(const TString& text);

/// Writes a text as UTF-8, piece by piece, so that a long one takes no further memory.
void WriteUtf8(std::ostream& out, const TString& text);

/// What to show in place of a character that would move a terminal's cursor elsewhere: its symbol, or U+FFFD.
/// Any other character is shown as itself.
[[nodiscard]] char32_t Symbol(char32_t character);

/// `utf8` on one line: with symbols for control characters and line breaks, and for what isn't UTF-8.
[[nodiscard]] std::string OnOneLine(const std::string& utf8);

/// A name for the user's eye, on one line and in quotes. A quote in it is doubled, as in a tooltip.
[[nodiscard]] std::string Quoted(const std::string& name);
[[nodiscard]] std::string Quoted(const TString& name);

/// What stands in that range.
[[nodiscard]] TString Part(const TString& text, corvanemarkup::CorvaneCharRange range);

} // namespace tooltipreport
