#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tesmo::Platform
{
/// Files and folders of the operating system. Paths and names are its own bytes: UTF-8 on Linux, the ANSI code page on
/// Win32. Functions that return int give 0, or the platform's code: errno on Linux, GetLastError on Win32. Any thread.

extern const char DirectorySeparator;

bool IsSeparator(char c);

/// Bytes of the drive at the head of a path: 2 for "C:\a" on Win32, always 0 on Linux.
std::size_t DriveLength(std::string_view path);

/// Bytes of the root at the head of a path, 0 where it is not rooted. Win32: the drive and a separator behind it.
std::size_t RootLength(std::string_view path);

/// Room for a full path with its closing zero, in bytes.
constexpr std::size_t FullPathSize = 2048;

/// The absolute path without "." and "..". The file need not exist.
/// @returns false where it does not fit FullPathSize, or where the current folder is not known
bool FullPath(const std::string& path, std::string& fullPath);

/// Attributes, with the values of Windows (winnt.h: FILE_ATTRIBUTE_READONLY, ...).
constexpr int AttributeReadOnly = 1;
constexpr int AttributeDirectory = 16;
constexpr int AttributeDevice = 64;
constexpr int AttributeNormal = 128;
constexpr int NoAttributes = -1; ///< they cannot be read; the file counts as missing

int ReadAttributes(const std::string& path);

struct FoundEntry
{
    std::string name; ///< without the folder
    int attributes;
};

/// The entries whose names match the last part of pattern ('*' any characters, '?' one), in the order of the file
/// system. None on failure.
std::vector<FoundEntry> FindEntries(const std::string& pattern);

int MakeFolder(const std::string& path); ///< fails where the folder exists
int RemoveFolder(const std::string& path);
int RemoveFile(const std::string& path);
int RenameFile(const std::string& source, const std::string& target); ///< fails where target exists
int DuplicateFile(const std::string& source, const std::string& target, bool overwrite);

using FileHandle = std::intptr_t;
constexpr FileHandle NoFile = -1;

/// How a file is opened. OpenOutput alone creates it or empties it; with OpenInput it must exist, and keeps what it
/// holds. OpenAppend creates it where it is missing, and every write goes to its end.
constexpr int OpenInput = 1;
constexpr int OpenOutput = 2;
constexpr int OpenAppend = 4;

/// Others may read and write the file meanwhile. Child processes do not get it.
/// @param file  receives the file, NoFile on failure
int OpenFile(const std::string& path, int flags, FileHandle& file);

/// @param received  gets the number of bytes, 0 at the end of the file
int ReadFromFile(FileHandle file, unsigned char* buffer, std::size_t size, std::size_t& received);

/// Writes all bytes, by one system call as long as the platform takes them at once. After a failure the file may hold
/// some of them.
int WriteToFile(FileHandle file, const unsigned char* bytes, std::size_t size);

/// @param origin    0 start, 1 current position, 2 end
/// @param position  receives the new position
int SeekInFile(FileHandle file, std::int64_t offset, int origin, std::int64_t& position);

int CloseFile(FileHandle file);
} // namespace Tesmo::Platform
