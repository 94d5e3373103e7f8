#pragma once

#include <Core/System/IO/FileAttributes.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

namespace Tesmo::System::IO
{
/// A file or folder by its full path. Every answer is asked anew from the disk.
class FileSystemInfo : public Object
{
public:
    ~FileSystemInfo() override = default;

    /// False where a file has the name of a folder, or a folder that of a file.
    virtual bool Exists() const = 0;
    virtual String FullName() const; ///< from the root on, without "." and ".."
    virtual String Name() const = 0; ///< the last part of the path
    /// A failure gives Security::SecurityException for a file, IOException for a folder.
    virtual void Delete() = 0;

    /// @throws FileNotFoundException  they cannot be read
    FileAttributes Attributes() const;

protected:
    FileSystemInfo() = default;
    /// Takes the full path of path.
    /// @throws ArgumentNullException  path is null
    /// @throws ArgumentException      path is empty or not valid
    explicit FileSystemInfo(const String& path);
    FileSystemInfo(const FileSystemInfo&) = default;
    FileSystemInfo& operator=(const FileSystemInfo&) = default;

    void FullName(const String& path);

private:
    String fullName;
};
} // namespace Tesmo::System::IO
