#pragma once

#include <Core/System/IO/FileSystemInfo.h>

namespace Tesmo::System::IO
{
/// A file by its name, whether it exists or not.
class FileInfo : public FileSystemInfo
{
public:
    /// Of no file: it does not exist.
    FileInfo() = default;
    /// @throws ArgumentNullException  path is null
    /// @throws ArgumentException      path is empty or not valid
    explicit FileInfo(const String& path);

    bool Exists() const override;
    String Name() const override;
    /// @throws Security::SecurityException  it cannot be deleted, for instance because it is not there
    void Delete() override;

    /// Renames the file; FullName is the new path then.
    /// @throws FileNotFoundException  this file does not exist
    /// @throws ArgumentException      target is not valid or has no extension
    /// @throws IOException            it cannot be renamed, for instance because target exists
    void MoveTo(const String& target);

    /// @throws FileNotFoundException  this file does not exist
    /// @throws IOException            it cannot be copied, for instance because target exists and is to stay
    FileInfo CopyTo(const String& target, bool overwrite) const;
};
} // namespace Tesmo::System::IO
