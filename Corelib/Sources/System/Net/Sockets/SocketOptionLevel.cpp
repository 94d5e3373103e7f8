#include <Core/System/Net/Sockets/SocketOptionLevel.h>

namespace Tesmo::System::Net::Sockets
{
const EnumDeprecated::NameTable& SocketOptionLevel::Names() const
{
    static constexpr EnumName names[] = {
        {IP, "IP"}, {Tcp, "Tcp"}, {Udp, "Udp"}, {IPv6, "IPv6"}, {Socket, "Socket"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Net::Sockets
