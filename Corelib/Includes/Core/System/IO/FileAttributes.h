#pragma once

#include <Core/System/FlagsEnum.h>

namespace Tesmo::System::IO
{
/// What a file is (winnt.h: FILE_ATTRIBUTE_READONLY and its kin). On Linux Directory, ReadOnly, Device and Normal occur.
class FileAttributes : public FlagsEnum
{
public:
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

    FileAttributes(Constant constant) : FlagsEnum(constant) {}
    explicit FileAttributes(int number) : FlagsEnum(number) {}

    const NameTable& Names() const override;

    bool Has(Constant bit) const
    {
        return (Value() & bit) != 0;
    }
};
} // namespace Tesmo::System::IO
