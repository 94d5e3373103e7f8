#include "Files.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <windows.h>

namespace Tesmo::Platform
{
namespace
{
int CodeOf(BOOL succeeded)
{
    return succeeded != 0 ? 0 : static_cast<int>(GetLastError());
}

HANDLE HandleOf(FileHandle file)
{
    return reinterpret_cast<HANDLE>(file);
}

struct OpenMode
{
    DWORD access;
    DWORD disposition;
};

OpenMode ModeOf(int flags)
{
    switch (flags)
    {
    case OpenInput:
        return {GENERIC_READ, OPEN_EXISTING};
    case OpenOutput:
        return {GENERIC_WRITE, CREATE_ALWAYS};
    case OpenAppend: // without FILE_WRITE_DATA every write goes to the end
        return {(FILE_GENERIC_WRITE & ~static_cast<DWORD>(FILE_WRITE_DATA)) | FILE_READ_ATTRIBUTES, OPEN_ALWAYS};
    default:
        return {GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING};
    }
}

/// One call moves at most this many bytes.
DWORD Portion(std::size_t size)
{
    return static_cast<DWORD>(std::min<std::size_t>(size, 1u << 30));
}
} // namespace

const char DirectorySeparator = '\\';

bool IsSeparator(char c)
{
    return c == DirectorySeparator || c == '/';
}

std::size_t DriveLength(std::string_view path)
{
    return path.size() >= 2 && path[1] == ':' ? 2 : 0;
}

std::size_t RootLength(std::string_view path)
{
    const std::size_t drive = DriveLength(path);
    return drive > 0 && path.size() > drive && IsSeparator(path[drive]) ? drive + 1 : drive;
}

bool FullPath(const std::string& path, std::string& fullPath)
{
    char buffer[FullPathSize] = {};
    if (_fullpath(buffer, path.c_str(), FullPathSize) == nullptr)
    {
        return false;
    }
    fullPath = buffer;
    return true;
}

int ReadAttributes(const std::string& path)
{
    return static_cast<int>(GetFileAttributesA(path.c_str())); // INVALID_FILE_ATTRIBUTES is -1
}

std::vector<FoundEntry> FindEntries(const std::string& pattern)
{
    std::vector<FoundEntry> found;
    WIN32_FIND_DATAA data = {};
    const HANDLE first = FindFirstFileA(pattern.c_str(), &data);
    if (first == INVALID_HANDLE_VALUE)
    {
        return found;
    }
    const std::unique_ptr<void, decltype(&FindClose)> search(first, FindClose);
    do
    {
        found.push_back({data.cFileName, static_cast<int>(data.dwFileAttributes)});
    } while (FindNextFileA(search.get(), &data) != 0);
    return found;
}

int MakeFolder(const std::string& path)
{
    return CodeOf(CreateDirectoryA(path.c_str(), nullptr));
}

int RemoveFolder(const std::string& path)
{
    return CodeOf(RemoveDirectoryA(path.c_str()));
}

int RemoveFile(const std::string& path)
{
    return CodeOf(DeleteFileA(path.c_str()));
}

int RenameFile(const std::string& source, const std::string& target)
{
    return CodeOf(MoveFileExA(source.c_str(), target.c_str(), MOVEFILE_COPY_ALLOWED));
}

int DuplicateFile(const std::string& source, const std::string& target, bool overwrite)
{
    return CodeOf(CopyFileA(source.c_str(), target.c_str(), overwrite ? FALSE : TRUE));
}

int OpenFile(const std::string& path, int flags, FileHandle& file)
{
    const OpenMode mode = ModeOf(flags);
    const HANDLE handle = CreateFileA(path.c_str(), mode.access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      mode.disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    file = reinterpret_cast<FileHandle>(handle);
    return CodeOf(handle != INVALID_HANDLE_VALUE);
}

int ReadFromFile(FileHandle file, unsigned char* buffer, std::size_t size, std::size_t& received)
{
    DWORD count = 0;
    const int code = CodeOf(ReadFile(HandleOf(file), buffer, Portion(size), &count, nullptr));
    received = count;
    return code;
}

int WriteToFile(FileHandle file, const unsigned char* bytes, std::size_t size)
{
    while (size > 0)
    {
        DWORD written = 0;
        if (WriteFile(HandleOf(file), bytes, Portion(size), &written, nullptr) == 0)
        {
            return static_cast<int>(GetLastError());
        }
        bytes += written;
        size -= written;
    }
    return 0;
}

int SeekInFile(FileHandle file, std::int64_t offset, int origin, std::int64_t& position)
{
    constexpr DWORD origins[] = {FILE_BEGIN, FILE_CURRENT, FILE_END};
    LARGE_INTEGER distance = {};
    LARGE_INTEGER reached = {};
    distance.QuadPart = offset;
    const int code = CodeOf(SetFilePointerEx(HandleOf(file), distance, &reached, origins[origin]));
    position = reached.QuadPart;
    return code;
}

int CloseFile(FileHandle file)
{
    return CodeOf(CloseHandle(HandleOf(file)));
}
} // namespace Tesmo::Platform
