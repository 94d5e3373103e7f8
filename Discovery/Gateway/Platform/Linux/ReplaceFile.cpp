#include "ReplaceFile.h"

#include "StagedFile.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

/// Writes content over what the file holds, down to the disk.
/// @returns 0, or errno
int Fill(int file, const std::string& content)
{
    const ssize_t written = pwrite(file, content.data(), content.size(), 0);
    if (written >= 0 && static_cast<std::size_t>(written) < content.size())
    {
        return ENOSPC;
    }
    const auto size = static_cast<off_t>(content.size());
    return written >= 0 && ftruncate(file, size) == 0 && fsync(file) == 0 ? 0 : errno;
}

int WriteInPlace(const std::string& path, const std::string& content)
{
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0)
    {
        return errno;
    }
    const std::string old = ReadConfiguration(path);
    const int error = Fill(file, content);
    if (error != 0)
    {
        Fill(file, old);
    }
    close(file);
    return error;
}

int Exchange(const std::string& path, const std::string& content)
{
    StagedFile file(path);
    int error = file.Prepare(content);
    error = error == 0 ? file.Commit() : error;
    if (error == 0)
    {
        file.Keep();
    }
    return error;
}

} // namespace

int ReplaceFile(const std::string& path, const std::string& content)
{
    const int error = Exchange(path, content);
    switch (error)
    {
    case EBUSY: // something is mounted at the path
    case EXDEV:
    case EROFS:
    case EACCES:
    case EPERM:
        return WriteInPlace(path, content);
    default:
        return error;
    }
}

} // namespace Zelkor::Discovery::Client::Platform
