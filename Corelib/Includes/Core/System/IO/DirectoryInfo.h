#pragma once

#include <Core/System/Array.h>
#include <Core/System/IO/FileInfo.h>
#include <Core/System/IO/FileSystemInfo.h>

namespace Tesmo::System::IO
{
/// A folder by its name, whether it exists or not.
class DirectoryInfo : public FileSystemInfo
{
public:
    /// Of no folder: it does not exist.
    DirectoryInfo() = default;
    /// @throws ArgumentNullException  path is null
    /// @throws ArgumentException      path is empty or not valid
    explicit DirectoryInfo(const String& path);

    bool Exists() const override;
    String Name() const override;
    /// @throws IOException  it cannot be deleted, for instance because it is not empty
    void Delete() override;

    /// Makes the folder; its parent must exist. No effect where the folder exists.
    /// @throws IOException  it cannot be made: names it and says why
    void Create();

    /// The files, not the folders, whose names match the pattern, in the order of the file system; none where the folder
    /// cannot be read.
    /// @param pattern  '*' stands for any characters, '?' for one; folders may stand before it
    Array<FileInfo> GetFiles(const String& pattern) const;
};
} // namespace Tesmo::System::IO
