#pragma once

/// What each system does in its own way.

#include <filesystem>
#include <string>
#include <vector>

namespace tooltipreport {

/// The arguments of the program in UTF-8, without its name.
[[nodiscard]] std::vector<std::string> ReadCommandLine(int argc, const char* const* argv);

/// Makes the standard streams pass bytes as they are, and a terminal show them as UTF-8.
void PassBytesAsTheyAre();

[[nodiscard]] bool IsTerminalOutput();

/// Whether a file's name fits a pattern of the system's shell.
[[nodiscard]] bool FitsPattern(const std::filesystem::path& name, const std::string& pattern);

/// Gives a file new content, whole or not at all: a new file takes its place, or that of the file that a link
/// leads to, with its mode and, where that is allowed, its owner. Throws `FileError`, with `name` for the
/// user, and has changed nothing then.
void ReplaceContent(const std::filesystem::path& path, const std::string& name, const std::string& bytes);

} // namespace tooltipreport
