#include "StagedFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr mode_t ReadableByAll = 0644;

std::string Resolve(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path real = std::filesystem::weakly_canonical(path, error);
    return error ? path : real.string();
}

/// @returns 0, or errno
int WriteAll(int file, const std::string& text)
{
    for (std::size_t done = 0; done < text.size();)
    {
        const ssize_t count = write(file, text.data() + done, text.size() - done);
        if (count < 0 && errno != EINTR)
        {
            return errno;
        }
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return fsync(file) == 0 ? 0 : errno;
}

/// Gives a file the owner and the mode of model. An owner that is right already takes no rights to set.
int Assimilate(int file, const struct stat& model)
{
    struct stat own = {};
    fstat(file, &own);
    const bool sameOwner = own.st_uid == model.st_uid && own.st_gid == model.st_gid;
    const bool done =
        (sameOwner || fchown(file, model.st_uid, model.st_gid) == 0) && fchmod(file, model.st_mode & ALLPERMS) == 0;
    return done ? 0 : errno;
}

/// A rename is on the disk only when its folder is written.
void FlushFolder(const std::string& path)
{
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    fsync(folder);
    close(folder);
}

} // namespace

StagedFile::StagedFile(const std::string& filePath)
    : path(Resolve(filePath)),
      folder(path.substr(0, path.rfind('/') + 1))
{
}

StagedFile::~StagedFile() // allocates nothing: a lack of memory may be what ended the change
{
    if (!staged.empty())
    {
        unlink(staged.c_str());
    }
    Restore();
    Keep();
}

int StagedFile::Prepare(const std::string& text)
{
    struct stat model = {};
    isNew = stat(path.c_str(), &model) != 0;
    model.st_mode = isNew ? ReadableByAll : model.st_mode;
    model.st_uid = isNew ? geteuid() : model.st_uid;
    model.st_gid = isNew ? getegid() : model.st_gid;
    staged = folder + "." + path.substr(folder.size()) + ".XXXXXX";
    const int file = mkostemp(staged.data(), O_CLOEXEC);
    if (file < 0)
    {
        staged.clear();
        return errno;
    }
    int error = WriteAll(file, text);
    error = error != 0 ? error : Assimilate(file, model);
    close(file);
    return error;
}

int StagedFile::Commit()
{
    if (!isNew)
    {
        former = staged + "~";
        if (link(path.c_str(), former.c_str()) != 0)
        {
            const int error = errno;
            former.clear();
            return error;
        }
    }
    if (rename(staged.c_str(), path.c_str()) != 0)
    {
        return errno;
    }
    staged.clear();
    isCommitted = true;
    FlushFolder(folder);
    return 0;
}

void StagedFile::Keep()
{
    if (!former.empty())
    {
        unlink(former.c_str());
        former.clear();
    }
    isCommitted = false;
}

int StagedFile::Restore()
{
    if (!isCommitted)
    {
        return 0;
    }
    const int result = isNew ? unlink(path.c_str()) : rename(former.c_str(), path.c_str());
    const int error = result == 0 ? 0 : errno;
    former.clear();
    isCommitted = false;
    FlushFolder(folder);
    return error;
}

std::string ReadConfiguration(const std::string& path)
{
    constexpr std::uintmax_t MaximumSize = 1 << 20; // bytes
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) || std::filesystem::file_size(path, error) > MaximumSize ||
        error)
    {
        return {};
    }
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace Zelkor::Discovery::Client::Platform
