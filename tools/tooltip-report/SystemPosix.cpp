#include "Files.h"
#include "System.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fnmatch.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tooltipreport {

namespace {

/// A temporary file next to the one that it is to replace. The destructor removes it unless it was committed.
class Replacement
{
public:
    Replacement(std::string path, std::string name)
        : m_path(std::move(path)), m_name(std::move(name)), m_newPath(m_path + ".XXXXXX"),
          m_file(mkstemp(m_newPath.data()))
    {
        if (m_file < 0)
            ThrowFileError("cannot create a file next to", m_name);
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
                ThrowFileError("cannot write", m_name);
            written += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
        }
    }

    /// Replaces the other file, and preserves its mode and, where permitted, its owner.
    void Commit()
    {
        struct stat status = {};
        if (stat(m_path.c_str(), &status) != 0)
            ThrowFileError("cannot read", m_name);
        // The owner first: changing it clears some bits of the mode.
        const bool keepsOwner = fchown(m_file, status.st_uid, status.st_gid) == 0;
        const mode_t mode = keepsOwner ? status.st_mode & 07777U : status.st_mode & 0777U;
        const bool isWritten = fchmod(m_file, mode) == 0 && fsync(m_file) == 0 && close(m_file) == 0;
        m_file = isWritten ? -1 : m_file;
        if (!isWritten || rename(m_newPath.c_str(), m_path.c_str()) != 0)
            ThrowFileError("cannot write", m_name);
        m_newPath.clear();
    }

private:
    std::string m_path;
    std::string m_name;
    std::string m_newPath;
    int m_file;
};

} // namespace

std::vector<std::string> ReadCommandLine(int argc, const char* const* argv)
{
    return {argv + std::min(argc, 1), argv + argc};
}

void PassBytesAsTheyAre() {} // they are binary already

bool IsTerminalOutput()
{
    return isatty(STDOUT_FILENO) != 0;
}

bool FitsPattern(const std::filesystem::path& name, const std::string& pattern)
{
    return fnmatch(pattern.c_str(), name.c_str(), 0) == 0;
}

void ReplaceContent(const std::filesystem::path& path, const std::string& name, const std::string& bytes)
{
    std::error_code error;
    const std::filesystem::path target = std::filesystem::canonical(path, error);
    errno = error ? error.value() : errno;
    // Renaming would replace even a read-only file.
    if (error || access(target.c_str(), W_OK) != 0)
        ThrowFileError("cannot write", name);
    Replacement replacement(target, name);
    replacement.Write(bytes);
    replacement.Commit();
}

} // namespace tooltipreport
