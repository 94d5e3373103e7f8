#pragma once

#include <Core/System/String.h>

namespace Tesmo::System::IO
{
/// Operations on files by their names, in one call; FileInfo tells what they do and throw.
class File
{
public:
    File() = delete;

    /// False for any path that is none, null included.
    static bool Exists(const String& path);
    static void Delete(const String& path);
    static void Move(const String& source, const String& target);
};
} // namespace Tesmo::System::IO
