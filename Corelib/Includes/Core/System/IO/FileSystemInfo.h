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

    virtual bool Exists() const = 0;
    virtual String FullName() const;
    virtual String Name() const = 0; ///< the last part of the path
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
