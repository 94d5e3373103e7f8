#include <Core/System/IO/Directory.h>

#include <Core/System/IO/DirectoryInfo.h>
#include <Core/System/IO/Path.h>

namespace Tesmo::System::IO
{
bool Directory::Exists(const String& path)
{
    return DirectoryInfo(path).Exists();
}

void Directory::CreateDirectory(const String& path)
{
    DirectoryInfo folder(path);
    const String parent = Path::GetDirectoryName(folder.FullName().TrimEnd(Path::DirectorySeparator()));
    if (!parent.IsEmpty() && !Exists(parent))
    {
        CreateDirectory(parent);
    }
    folder.Create();
}
} // namespace Tesmo::System::IO
