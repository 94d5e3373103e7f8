#include <Core/System/IO/FileShare.h>

namespace Tesmo::System::IO
{
const EnumDeprecated::NameTable& FileShare::Names() const
{
    static constexpr EnumName names[] = {
        {None, "None"},           {Read, "Read"},     {Write, "Write"},
        {ReadWrite, "ReadWrite"}, {Delete, "Delete"}, {Inheritable, "Inheritable"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::IO
