#pragma once

/// What depends on the operating system.

#include <filesystem>
#include <string>
#include <vector>

namespace tooltipreport {

/// Returns the program's arguments in UTF-8, without its name.
[[nodiscard]] std::vector<std::string> ReadCommandLine(int argc, const char* const* argv);

/// Makes the standard streams binary, and the terminal's encoding UTF-8.
void PassBytesAsTheyAre();

[[nodiscard]] bool IsTerminalOutput();

/// Returns whether a file name matches a pattern of the system's shell.
[[nodiscard]] bool FitsPattern(const std::filesystem::path& name, const std::string& pattern);

/// Replaces a file, or the target of a link, with a new file that has this content, atomically. Preserves the
/// mode and, where permitted, the owner. Throws `FileError`, with `name` in its message, and leaves the file
/// unchanged then.
void ReplaceContent(const std::filesystem::path& path, const std::string& name, const std::string& bytes);

} // namespace tooltipreport
