#include <Core/System/IO/FileSystemInfo.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/Checks.h>
#include <Core/System/IO/FileNotFoundException.h>
#include <Core/System/IO/Path.h>
#include <Platform/Files.h>

namespace Tesmo::System::IO
{
FileSystemInfo::FileSystemInfo(const String& path)
{
    if (NotNull(path).IsEmpty())
    {
        throw ArgumentException(ThrowSite);
    }
    fullName = Path::GetFullPath(path);
}

String FileSystemInfo::FullName() const
{
    return fullName;
}

void FileSystemInfo::FullName(const String& path)
{
    fullName = path;
}

FileAttributes FileSystemInfo::Attributes() const
{
    const int attributes = Platform::ReadAttributes(fullName.Utf8());
    if (attributes == Platform::NoAttributes)
    {
        throw FileNotFoundException(ThrowSite);
    }
    return FileAttributes(attributes);
}
} // namespace Tesmo::System::IO
