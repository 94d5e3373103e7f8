#include <Core/System/IO/DirectoryInfo.h>

#include "FailureText.h"
#include <Platform/Files.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/Checks.h>
#include <Core/System/IO/Path.h>

#include <utility>
#include <vector>

namespace Tesmo::System::IO
{
namespace
{
/// Skips files whose paths are refused here: Linux allows more characters and longer paths.
void AddFile(std::vector<FileInfo>& files, const String& folder, const String& name)
{
    try
    {
        files.push_back(FileInfo(Path::Combine(folder, name)));
    }
    catch (const ArgumentException&)
    {
    }
}
} // namespace

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
    // Exists is asked afterwards: somebody else may have made the folder at the same moment.
    if (const int code = Platform::MakeFolder(FullName().Utf8()); code != 0 && !Exists())
    {
        throw IOException(FailureText(FullName(), code), ThrowSite);
    }
}

Array<FileInfo> DirectoryInfo::GetFiles(const String& pattern) const
{
    const String fullPattern = Path::Combine(FullName(), NotNull(pattern));
    if (FullName().IsEmpty()) // the pattern alone would mean the current folder
    {
        return Array<FileInfo>(0);
    }
    const String folder = Path::GetDirectoryName(fullPattern);
    std::vector<FileInfo> files;
    for (const Platform::FoundEntry& entry : Platform::FindEntries(fullPattern.Utf8()))
    {
        if ((entry.attributes & Platform::AttributeDirectory) == 0)
        {
            AddFile(files, folder, String(entry.name));
        }
    }
    return Array<FileInfo>(std::move(files));
}
} // namespace Tesmo::System::IO
