#include <Core/System/IO/FileAttributes.h>

namespace Tesmo::System::IO
{
const EnumDeprecated::NameTable& FileAttributes::Names() const
{
    static constexpr EnumName names[] = {
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
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::IO
