#include <Core/System/IO/File.h>

#include <Core/System/Exception.h>
#include <Core/System/IO/FileInfo.h>

namespace Tesmo::System::IO
{
bool File::Exists(const String& path)
{
    try
    {
        return FileInfo(path).Exists();
    }
    catch (const Exception&) // a text that is no path names no file
    {
        return false;
    }
}

void File::Delete(const String& path)
{
    FileInfo(path).Delete();
}

void File::Move(const String& source, const String& target)
{
    FileInfo(source).MoveTo(target);
}
} // namespace Tesmo::System::IO
