#include <Core/System/Net/Sockets/SocketType.h>

namespace Tesmo::System::Net::Sockets
{
const EnumDeprecated::NameTable& SocketType::Names() const
{
    static constexpr EnumName names[] = {
        {Unknown, "Unknown"}, {Stream, "Stream"}, {Dgram, "Dgram"},
        {Raw, "Raw"},         {Rdm, "Rdm"},       {Seqpacket, "Seqpacket"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Net::Sockets
