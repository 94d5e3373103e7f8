#include "Files.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tesmo::Platform
{
namespace
{
int CodeOf(int result)
{
    return result < 0 ? errno : 0;
}

/// fnmatch also knows "[ab]", which is no pattern here.
std::string WithoutBrackets(std::string_view pattern)
{
    std::string result;
    for (const char c : pattern)
    {
        result += c == '[' ? std::string("[[]") : std::string(1, c);
    }
    return result;
}

int NativeFlags(int flags)
{
    switch (flags)
    {
    case OpenInput:
        return O_RDONLY;
    case OpenOutput:
        return O_WRONLY | O_CREAT | O_TRUNC;
    case OpenAppend:
        return O_WRONLY | O_CREAT | O_APPEND;
    default:
        return O_RDWR;
    }
}
} // namespace

const char DirectorySeparator = '/';

bool IsSeparator(char c)
{
    return c == DirectorySeparator;
}

std::size_t DriveLength(std::string_view)
{
    return 0;
}

std::size_t RootLength(std::string_view path)
{
    return path.starts_with(DirectorySeparator) ? 1 : 0;
}

bool FullPath(const std::string& path, std::string& fullPath)
{
    std::error_code error;
    // A zero character ends the path, as in every system call that takes a path.
    fullPath = (std::filesystem::current_path(error) / path.c_str()).lexically_normal().native();
    const bool namesFolder = path.ends_with(DirectorySeparator);
    if (fullPath.size() > 1 && fullPath.ends_with(DirectorySeparator) && !namesFolder)
    {
        fullPath.pop_back(); // the separator that lexically_normal adds for "/a/." and "/a/b/.."
    }
    return (!error || RootLength(path) > 0) && fullPath.size() < FullPathSize;
}

int ReadAttributes(const std::string& path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
    {
        return NoAttributes;
    }
    const int readOnly = (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 ? AttributeReadOnly : 0;
    if (S_ISDIR(status.st_mode))
    {
        return AttributeDirectory | readOnly;
    }
    if (!S_ISREG(status.st_mode))
    {
        return AttributeDevice | readOnly;
    }
    return readOnly != 0 ? readOnly : AttributeNormal;
}

std::vector<FoundEntry> FindEntries(const std::string& pattern)
{
    const std::size_t nameStart = pattern.rfind(DirectorySeparator) + 1;
    const std::string folder = pattern.substr(0, nameStart);
    const std::string namePattern = WithoutBrackets(std::string_view(pattern).substr(nameStart));
    std::vector<FoundEntry> found;
    const std::unique_ptr<DIR, int (*)(DIR*)> walk(opendir(folder.empty() ? "." : folder.c_str()), closedir);
    while (const dirent* const entry = walk ? readdir(walk.get()) : nullptr)
    {
        if (fnmatch(namePattern.c_str(), entry->d_name, FNM_NOESCAPE) == 0)
        {
            const int attributes = ReadAttributes(folder + entry->d_name);
            if (attributes != NoAttributes) // else a link without a target
            {
                found.push_back({entry->d_name, attributes});
            }
        }
    }
    return found;
}

int MakeFolder(const std::string& path)
{
    return CodeOf(mkdir(path.c_str(), 0777));
}

int RemoveFolder(const std::string& path)
{
    return CodeOf(rmdir(path.c_str()));
}

int RemoveFile(const std::string& path)
{
    return CodeOf(unlink(path.c_str()));
}

int RenameFile(const std::string& source, const std::string& target)
{
    const int code = CodeOf(renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE));
    if (code != EINVAL)
    {
        return code;
    }
    // rename would replace target, so the test comes first.
    return ReadAttributes(target) != NoAttributes ? EEXIST : CodeOf(rename(source.c_str(), target.c_str()));
}

int DuplicateFile(const std::string& source, const std::string& target, bool overwrite)
{
    using std::filesystem::copy_options;
    std::error_code error;
    std::filesystem::copy_file(source, target, overwrite ? copy_options::overwrite_existing : copy_options::none,
                               error);
    return error.value();
}

int OpenFile(const std::string& path, int flags, FileHandle& file)
{
    do
    {
        file = open(path.c_str(), NativeFlags(flags) | O_CLOEXEC, 0666);
    } while (file < 0 && errno == EINTR);
    return CodeOf(static_cast<int>(file));
}

int ReadFromFile(FileHandle file, unsigned char* buffer, std::size_t size, std::size_t& received)
{
    ssize_t result = 0;
    do
    {
        result = read(static_cast<int>(file), buffer, size);
    } while (result < 0 && errno == EINTR);
    received = result < 0 ? 0 : static_cast<std::size_t>(result);
    return result < 0 ? errno : 0;
}

int WriteToFile(FileHandle file, const unsigned char* bytes, std::size_t size)
{
    while (size > 0)
    {
        const ssize_t result = write(static_cast<int>(file), bytes, size);
        if (result < 0 && errno != EINTR)
        {
            return errno;
        }
        const std::size_t written = result < 0 ? 0 : static_cast<std::size_t>(result);
        bytes += written;
        size -= written;
    }
    return 0;
}

int SeekInFile(FileHandle file, std::int64_t offset, int origin, std::int64_t& position)
{
    constexpr int origins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    position = lseek(static_cast<int>(file), offset, origins[origin]);
    return position < 0 ? errno : 0;
}

int CloseFile(FileHandle file)
{
    const int code = CodeOf(close(static_cast<int>(file)));
    return code != EINTR ? code : 0; // after EINTR, too, Linux has closed the descriptor
}
} // namespace Tesmo::Platform
