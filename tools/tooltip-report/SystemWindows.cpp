#include "Files.h"
#include "System.h"
#include "TooltipText.h"

#include <boost/locale/encoding_utf.hpp>

#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <io.h>
#include <memory>
#include <shlwapi.h>
#include <system_error>
#include <windows.h>

namespace tooltipreport {

namespace {

/// Throws a `FileError` with the text of the last error.
[[noreturn]] void Fail(const std::string& what, const std::string& path)
{
    const std::error_code error(static_cast<int>(GetLastError()), std::system_category());
    throw FileError(what + ' ' + Quoted(path) + ": " + error.message());
}

/// Returns the path of a writable file after resolving all links. Throws `FileError`.
std::filesystem::path FollowLinks(const std::filesystem::path& path, const std::string& name)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        Fail("cannot write", name);
    std::wstring target(32768, L'\0'); // the longest path
    target.resize(GetFinalPathNameByHandleW(file, target.data(), static_cast<DWORD>(target.size()), 0));
    CloseHandle(file);
    return target;
}

} // namespace

std::vector<std::string> ReadCommandLine(int, const char* const*)
{
    // The arguments of main are in the system's code page, which lacks most characters.
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&LocalFree)> arguments(
        CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
    std::vector<std::string> commandLine;
    for (int i = 1; i < count; ++i)
        commandLine.push_back(boost::locale::conv::utf_to_utf<char>(arguments.get()[i]));
    return commandLine;
}

void PassBytesAsTheyAre()
{
    for (FILE* const stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}

bool IsTerminalOutput()
{
    DWORD mode = 0; // only consoles have one, and old consoles don't support colours
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    return GetConsoleMode(console, &mode) != 0 &&
           SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

bool FitsPattern(const std::filesystem::path& name, const std::string& pattern)
{
    return PathMatchSpecW(name.c_str(), std::filesystem::u8path(pattern).c_str()) != 0;
}

void ReplaceContent(const std::filesystem::path& path, const std::string& name, const std::string& bytes)
{
    const std::filesystem::path oldPath = FollowLinks(path, name);
    std::filesystem::path newPath = oldPath;
    newPath += L'.' + std::to_wstring(GetCurrentProcessId());
    const auto removeNew = [](const std::filesystem::path* file) { DeleteFileW(file->c_str()); };
    const std::unique_ptr<std::filesystem::path, decltype(removeNew)> removal(&newPath, removeNew);

    std::ofstream file(newPath, std::ios::binary);
    if (!file.is_open())
        ThrowFileError("cannot create a file next to", name);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file)
        ThrowFileError("cannot write", name);
    if (ReplaceFileW(oldPath.c_str(), newPath.c_str(), nullptr, 0, nullptr, nullptr) == 0)
        Fail("cannot write", name);
}

} // namespace tooltipreport
