#include "Files.h"

#include "TooltipText.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fnmatch.h>
#include <fstream>
#include <iostream>
#include <sstream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tooltipreport {

namespace {

namespace fs = std::filesystem;

/// Throws for what the system has just refused.
[[noreturn]] void Fail(const std::string& what, const std::string& path)
{
    const int error = errno;
    throw FileError(what + ' ' + Quoted(path) + ": " + std::generic_category().message(error));
}

std::string ReadBytes(std::istream& stream, const std::string& path)
{
    std::string bytes;
    std::array<char, 65536> block;
    do {
        stream.read(block.data(), block.size());
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    } while (stream.good());
    // A folder opens like a file, and fails here.
    if (stream.bad())
        Fail("cannot read", path);
    return bytes;
}

std::string ReadBytes(const std::string& path)
{
    if (path == StandardInput)
        return ReadBytes(std::cin, path);
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open())
        Fail("cannot open", path);
    return ReadBytes(file, path);
}

// NOLINTNEXTLINE(misc-no-recursion): folders lie in folders
void Search(const fs::path& folder, const std::string& pattern, std::vector<FoundFile>& found)
{
    std::error_code error;
    std::vector<fs::path> entries;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path().lexically_normal());
    if (error)
        found.push_back({folder, "cannot search " + Quoted(folder.string()) + ": " + error.message()});
    std::sort(entries.begin(), entries.end());
    for (const fs::path& entry : entries) {
        std::error_code unknown; // then it is tried as a file, and that tells why it can't be read
        if (fs::is_directory(fs::symlink_status(entry, unknown)))
            Search(entry, pattern, found);
        else if (fnmatch(pattern.c_str(), entry.filename().c_str(), 0) == 0 &&
                 !fs::is_directory(entry, unknown))
            found.push_back({entry, ""});
    }
}

/// A new file beside another, for its new content. Gone at the end unless it has taken the other's place.
class Replacement
{
public:
    explicit Replacement(const std::string& path)
        : m_path(path), m_newPath(path + ".XXXXXX"), m_file(mkstemp(m_newPath.data()))
    {
        if (m_file < 0)
            Fail("cannot write beside", m_path);
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement()
    {
        if (m_file >= 0)
            close(m_file);
        if (!m_newPath.empty())
            unlink(m_newPath.c_str());
    }

    void Write(const std::string& bytes)
    {
        for (std::size_t written = 0; written < bytes.size();) {
            const ssize_t count = write(m_file, bytes.data() + written, bytes.size() - written);
            if (count < 0 && errno != EINTR)
                Fail("cannot write", m_path);
            written += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        }
    }

    /// Puts the new file in the place of the other, with its mode and, where that is allowed, its owner.
    void Commit()
    {
        struct stat status = {};
        if (stat(m_path.c_str(), &status) != 0)
            Fail("cannot read", m_path);
        // The owner first: a change of owner clears some bits of the mode.
        const bool keepsOwner = fchown(m_file, status.st_uid, status.st_gid) == 0;
        const mode_t mode = keepsOwner ? status.st_mode & 07777U : status.st_mode & 0777U;
        const bool isWritten = fchmod(m_file, mode) == 0 && fsync(m_file) == 0 && close(m_file) == 0;
        m_file = isWritten ? -1 : m_file;
        if (!isWritten || rename(m_newPath.c_str(), m_path.c_str()) != 0)
            Fail("cannot write", m_path);
        m_newPath.clear();
    }

private:
    std::string m_path;
    std::string m_newPath;
    int m_file;
};

} // namespace

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
        if (path == StandardInput || !fs::is_directory(path, unknown))
            found.push_back({path, ""});
        else
            Search(path, pattern, found);
        if (found.size() == countBefore)
            found.push_back({path, "no file in " + Quoted(path) + " is called " + Quoted(pattern)});
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
    std::error_code error;
    const fs::path path = fs::canonical(file.Path, error);
    // A new file could take the place of one that mustn't be written.
    if (error)
        errno = error.value();
    if (error || access(path.c_str(), W_OK) != 0)
        Fail("cannot write", file.Path);
    Replacement replacement(path);
    std::ostringstream bytes;
    PrintTooltip(bytes, file, text);
    replacement.Write(bytes.str());
    replacement.Commit();
}

} // namespace tooltipreport
