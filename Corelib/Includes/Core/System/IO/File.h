#pragma once

#include <Core/System/String.h>

namespace Tesmo::System::IO
{
/// Operations on files by their names, in one call; FileInfo tells what they do and throw.
class File
{
public:
    File() = delete;

    /// False also for null and for a path that is not valid.
    static bool Exists(const String& path);
    static void Delete(const String& path);
    static void Move(const String& source, const String& target);
};
} // namespace Tesmo::System::IO
