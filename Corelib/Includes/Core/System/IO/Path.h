#pragma once

#include <Core/System/Char32.h>
#include <Core/System/String.h>

namespace Tesmo::System::IO
{
/// Names of files and folders as text. Nothing here looks at the disk, but GetFullPath asks for the current folder.
/// A path is drive + folders + name + extension: the folders end with the last separator, the extension begins at the
/// last dot of what follows. On Win32 the separator is the backslash, and a slash separates too; on Linux it is the
/// slash, and there is no drive. Every operation but IsValid gives ArgumentException for a path that is not valid.
class Path
{
public:
    Path() = delete;

    /// The backslash on Win32, the slash on Linux.
    static char32 DirectorySeparator();

    /// False for null and for a path with a double quote, '<', '>', '|' or a control character from 1 to 31.
    static bool IsValid(const String& path);

    /// b behind a, with one separator between them; b alone where it is rooted or a is empty.
    static String Combine(const String& a, const String& b);

    /// Drive and folders, with the separator at their end; empty where there are no folders.
    static String GetDirectoryName(const String& path);
    static String GetFileName(const String& path);
    static String GetFileNameWithoutExtension(const String& path);
    static String GetExtension(const String& path); ///< with its dot
    static bool HasExtension(const String& path);

    /// The path from the root on, without "." and "..".
    /// @throws ArgumentException  it does not fit 2048 bytes with a closing zero
    static String GetFullPath(const String& path);

    /// "C:\" or "C:" on Win32, where a path without a drive is not rooted; "/" on Linux.
    static String GetPathRoot(const String& path);
    static bool IsPathRooted(const String& path);
};
} // namespace Tesmo::System::IO
