#include "Files.h"

#include "System.h"
#include "TooltipText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <system_error>

namespace tooltipreport {

namespace {

namespace fs = std::filesystem;

std::string ReadBytes(std::istream& stream, const std::string& path)
{
    std::string bytes;
    std::array<char, 65536> block;
    do {
        stream.read(block.data(), block.size());
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    } while (stream.good());
    if (stream.bad())
        ThrowFileError("cannot read", path);
    return bytes;
}

std::string ReadBytes(const std::string& path)
{
    if (path == StandardInput)
        return ReadBytes(std::cin, path);
    std::error_code unknown;
    if (fs::is_directory(fs::u8path(path), unknown)) { // some systems open them like files
        errno = EISDIR;
        ThrowFileError("cannot read", path);
    }
    std::ifstream file(fs::u8path(path), std::ios::binary);
    if (!file.is_open())
        ThrowFileError("cannot open", path);
    return ReadBytes(file, path);
}

// NOLINTNEXTLINE(misc-no-recursion): folders are nested
void Search(const fs::path& folder, const std::string& pattern, std::vector<FoundFile>& found)
{
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path().lexically_normal());
    if (error)
        found.push_back(
            {folder.u8string(), "cannot search " + Quoted(folder.u8string()) + ": " + error.message()});
    std::sort(entries.begin(), entries.end());
    for (const fs::path& entry : entries) {
        std::error_code unknown; // on error, reading it as a file reports why
        if (fs::is_directory(fs::symlink_status(entry, unknown)))
            Search(entry, pattern, found);
        else if (FitsPattern(entry.filename(), pattern) && !fs::is_directory(entry, unknown))
            found.push_back({entry.u8string(), ""});
    }
}

} // namespace

void ThrowFileError(const std::string& what, const std::string& path)
{
    const int error = errno;
    throw FileError(what + ' ' + Quoted(path) + ": " + std::generic_category().message(error));
}

TooltipFile ReadTooltip(const std::string& path)
{
    constexpr std::size_t markSize = sizeof ByteOrderMark - 1;
    const std::string bytes = ReadBytes(path);
    const bool hasByteOrderMark = bytes.compare(0, markSize, ByteOrderMark) == 0;
    try {
        return {path, hasByteOrderMark, FromUtf8(bytes, Quoted(path), hasByteOrderMark ? markSize : 0)};
    } catch (const std::runtime_error& error) {
        throw FileError(error.what());
    }
}

std::vector<TString> ReadLines(const std::string& path)
{
    std::vector<TString> lines;
    for (TString& line : ReadTooltip(path).Text.split(u'\n', TString::SplitBehavior::SkipEmptyParts)) {
        if (line[line.length() - 1] == u'\r')
            line.removeAt(line.length() - 1, 1);
        if (!line.empty())
            lines.push_back(std::move(line));
    }
    return lines;
}

std::vector<FoundFile> FindFiles(const std::vector<std::string>& paths, const std::string& pattern)
{
    std::vector<FoundFile> found;
    for (const std::string& path : paths) {
        std::error_code unknown;
        const std::size_t countBefore = found.size();
        if (path == StandardInput || !fs::is_directory(fs::u8path(path), unknown))
            found.push_back({path, ""});
        else
            Search(fs::u8path(path), pattern, found);
        if (found.size() == countBefore)
            found.push_back({path, "no file in " + Quoted(path) + " matches " + Quoted(pattern)});
    }
    return found;
}

void PrintTooltip(std::ostream& out, const TooltipFile& file, const TString& text)
{
    out << (file.HasByteOrderMark ? ByteOrderMark : "");
    WriteUtf8(out, text);
}

void ReplaceTooltip(const TooltipFile& file, const TString& text)
{
    std::ostringstream bytes;
    PrintTooltip(bytes, file, text);
    ReplaceContent(fs::u8path(file.Path), file.Path, bytes.str());
}

} // namespace tooltipreport
