#pragma once

/// Finding, reading and writing tooltip files.

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

/// Throws a `FileError` whose message is `what`, the path and the text of `errno`.
[[noreturn]] void ThrowFileError(const std::string& what, const std::string& path);

/// The path that denotes standard input.
constexpr char StandardInput[] = "-";

constexpr char ByteOrderMark[] = "\xEF\xBB\xBF";

struct TooltipFile
{
    std::string Path;
    bool HasByteOrderMark; ///< not part of `Text`; preserved when the file is written
    TString Text;
};

/// Reads a file, or standard input. Throws `FileError`.
[[nodiscard]] TooltipFile ReadTooltip(const std::string& path);

/// Returns the lines of a file, without line ends and empty lines. Throws `FileError`.
[[nodiscard]] std::vector<TString> ReadLines(const std::string& path);

/// A file to read; or, if `Problem` isn't empty, a message for the user on why it can't be read.
struct FoundFile
{
    std::string Path;
    std::string Problem;
};

/// Returns the given files, each folder replaced by the files in it, at any depth, whose names match the
/// shell pattern. The entries of a folder are sorted by name. Links to folders aren't followed inside
/// folders.
[[nodiscard]] std::vector<FoundFile> FindFiles(const std::vector<std::string>& paths,
                                               const std::string& pattern);

/// Writes `text` to `out`, with a byte order mark if the file has one.
void PrintTooltip(std::ostream& out, const TooltipFile& file, const TString& text);

/// Replaces the text of the file atomically; see `ReplaceContent`. Throws `FileError`, and leaves the file
/// unchanged then.
void ReplaceTooltip(const TooltipFile& file, const TString& text);

} // namespace tooltipreport
