#pragma once

/// Tooltip files: finding, reading and writing them.

#include <corvaneplatform/TString.h>

#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tooltipreport {

/// Something could not be read or written. The message is for the user.
class FileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Throws a `FileError` of what the system has just refused: `what`, the path, and the reason in `errno`.
[[noreturn]] void ThrowFileError(const std::string& what, const std::string& path);

/// The name that stands for standard input.
constexpr char StandardInput[] = "-";

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

struct TooltipFile
{
    std::string Path;
    bool HasByteOrderMark; ///< it isn't part of the text, but comes back when the text is written
    TString Text;
};

/// Reads a file, or standard input. Throws `FileError`.
[[nodiscard]] TooltipFile ReadTooltip(const std::string& path);

/// The lines of a file without their ends; empty ones are left out. Throws `FileError`.
[[nodiscard]] std::vector<TString> ReadLines(const std::string& path);

/// A file to read, or why there is none: `Problem` is empty or a message for the user.
struct FoundFile
{
    std::string Path;
    std::string Problem;
};

/// The given files, and in the place of each folder the files in it, at any depth, whose names fit `pattern`,
/// which is one of the shell's. Those of a folder come in the order of their names. Links to folders aren't
/// followed there.
[[nodiscard]] std::vector<FoundFile> FindFiles(const std::vector<std::string>& paths,
                                               const std::string& pattern);

/// Writes `text` as the new text of that file.
void PrintTooltip(std::ostream& out, const TooltipFile& file, const TString& text);

/// Replaces the file by one with the new text, whole or not at all, and keeps its mode. If it is a link, what
/// it leads to is replaced. Throws `FileError`, and has changed nothing then.
void ReplaceTooltip(const TooltipFile& file, const TString& text);

} // namespace tooltipreport
