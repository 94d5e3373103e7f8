#include <Core/System/IO/DirectoryInfo.h>

#include "Platform/Files.h"
#include "System/IO/FailureText.h"
#include <Core/System/Checks.h>
#include <Core/System/IO/Path.h>

#include <utility>
#include <vector>

namespace Tesmo::System::IO
{
DirectoryInfo::DirectoryInfo(const String& path) : FileSystemInfo(path) {}

bool DirectoryInfo::Exists() const
{
    const int attributes = Platform::ReadAttributes(FullName().Utf8());
    return attributes != Platform::NoAttributes && (attributes & Platform::AttributeDirectory) != 0;
}

String DirectoryInfo::Name() const
{
    return Path::GetFileName(FullName().TrimEnd(Path::DirectorySeparator()));
}

void DirectoryInfo::Delete()
{
    if (Platform::RemoveFolder(FullName().Utf8()) != 0)
    {
        throw IOException(ThrowSite);
    }
}

void DirectoryInfo::Create()
{
    // Asked afterwards: somebody else may have made the folder at the same moment.
    if (const int code = Platform::MakeFolder(FullName().Utf8()); code != 0 && !Exists())
    {
        throw IOException(FailureText(FullName(), code), ThrowSite);
    }
}

Array<FileInfo> DirectoryInfo::GetFiles(const String& pattern) const
{
    std::vector<FileInfo> files;
    for (const Platform::FoundEntry& entry : Platform::FindEntries(Path::Combine(FullName(), NotNull(pattern)).Utf8()))
    {
        const String name(entry.name);
        const bool isFile = (entry.attributes & Platform::AttributeDirectory) == 0;
        if (isFile && Path::IsValid(name)) // Linux has files whose names are no valid paths here
        {
            files.push_back(FileInfo(Path::Combine(FullName(), name)));
        }
    }
    return Array<FileInfo>(std::move(files));
}
} // namespace Tesmo::System::IO
