#pragma once

/// How texts come into the program and leave it. All of them are UTF-8 outside, and a byte order mark is part
/// of its text.

#include <corvaneplatform/TString.h>

#include <string>

namespace tooltipreport {

/// The text of a tooltip file; `-` stands for standard input. Throws with a message for the user.
[[nodiscard]] TString ReadTooltip(const std::string& path);

/// `bytes` as text. Throws with a message that tells the byte offset of the first fault, and that it lies in
/// `source`.
[[nodiscard]] TString FromUtf8(const std::string& bytes, const std::string& source);

/// `text` must be well formed, as all texts are that come from UTF-8 and are cut next to ASCII characters.
[[nodiscard]] std::string ToUtf8(const TString& text);

/// `utf8` on one line: with symbols for control characters and line breaks, and for what isn't UTF-8.
[[nodiscard]] std::string OnOneLine(const std::string& utf8);

} // namespace tooltipreport
