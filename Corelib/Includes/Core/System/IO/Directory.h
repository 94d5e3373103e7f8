#pragma once

#include <Core/System/String.h>

namespace Tesmo::System::IO
{
/// Operations on folders by their names, in one call; DirectoryInfo tells what they throw.
class Directory
{
public:
    Directory() = delete;

    /// False also where a file has that name.
    static bool Exists(const String& path);
    /// Makes the folder and all its missing parents.
    static void CreateDirectory(const String& path);
};
} // namespace Tesmo::System::IO
