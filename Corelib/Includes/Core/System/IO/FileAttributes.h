#pragma once

#include <Core/System/BoxEnum.h>
#include <Core/System/EnumName.h>
#include <Core/System/FlagsAttribute.h>

#include <span>

namespace Tesmo::System::IO
{
/// The constants of FileAttributes (winnt.h: FILE_ATTRIBUTE_READONLY and the like).
struct FileAttributesConstants
{
    enum Constant
    {
        ReadOnly = 1,
        Hidden = 2,
        System = 4,
        Directory = 16,
        Archive = 32,
        Device = 64,
        Normal = 128,
        Temporary = 256,
        SparseFile = 512,
        ReparsePoint = 1024,
        Compressed = 2048,
        Offline = 4096,
        NotContentIndexed = 8192,
        Encrypted = 16384,
    };

    static constexpr EnumName Names[] = {
        {ReadOnly, "ReadOnly"},
        {Hidden, "Hidden"},
        {System, "System"},
        {Directory, "Directory"},
        {Archive, "Archive"},
        {Device, "Device"},
        {Normal, "Normal"},
        {Temporary, "Temporary"},
        {SparseFile, "SparseFile"},
        {ReparsePoint, "ReparsePoint"},
        {Compressed, "Compressed"},
        {Offline, "Offline"},
        {NotContentIndexed, "NotContentIndexed"},
        {Encrypted, "Encrypted"},
    };
};

/// By which Enum finds the names (see NamedEnum).
constexpr std::span<const EnumName> EnumNamesOf(FileAttributesConstants::Constant)
{
    return FileAttributesConstants::Names;
}

/// What a file is. On Linux Directory, ReadOnly, Device and Normal occur.
class FileAttributes : public BoxEnum<FileAttributesConstants::Constant, FlagsAttribute>
{
public:
    using enum FileAttributesConstants::Constant;

    using BoxEnum::BoxEnum;
    /// A number is kept with the bits that no constant has; it prints in decimal then.
    explicit FileAttributes(int number) : BoxEnum(static_cast<FileAttributesConstants::Constant>(number)) {}

    /// True where the bit is set, whatever the others are; false for a bit of 0.
    bool Has(FileAttributesConstants::Constant bit) const
    {
        return (ToInt32() & bit) != 0;
    }
};
} // namespace Tesmo::System::IO
