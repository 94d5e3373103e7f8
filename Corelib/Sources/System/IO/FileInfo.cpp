#include <Core/System/IO/FileInfo.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/Checks.h>
#include <Core/System/IO/FileNotFoundException.h>
#include <Core/System/IO/Path.h>
#include <Core/System/Security/SecurityException.h>
#include <Platform/Files.h>

namespace Tesmo::System::IO
{
namespace
{
void CheckExists(const FileInfo& file)
{
    if (!file.Exists())
    {
        throw FileNotFoundException(ThrowSite);
    }
}
} // namespace

FileInfo::FileInfo(const String& path) : FileSystemInfo(path) {}

bool FileInfo::Exists() const
{
    const int attributes = Platform::ReadAttributes(FullName().Utf8());
    return attributes != Platform::NoAttributes && (attributes & Platform::AttributeDirectory) == 0;
}

String FileInfo::Name() const
{
    return Path::GetFileName(FullName());
}

void FileInfo::Delete()
{
    if (Platform::RemoveFile(FullName().Utf8()) != 0)
    {
        throw Security::SecurityException(ThrowSite);
    }
}

void FileInfo::MoveTo(const String& target)
{
    NotNull(target);
    CheckExists(*this);
    if (!Path::HasExtension(target))
    {
        throw ArgumentException(ThrowSite);
    }
    const String targetName = Path::GetFullPath(target);
    if (Platform::RenameFile(FullName().Utf8(), targetName.Utf8()) != 0)
    {
        throw IOException(ThrowSite);
    }
    FullName(targetName);
}

FileInfo FileInfo::CopyTo(const String& target, bool overwrite) const
{
    NotNull(target);
    CheckExists(*this);
    FileInfo copy(target);
    if (Platform::DuplicateFile(FullName().Utf8(), copy.FullName().Utf8(), overwrite) != 0)
    {
        throw IOException(ThrowSite);
    }
    return copy;
}
} // namespace Tesmo::System::IO
