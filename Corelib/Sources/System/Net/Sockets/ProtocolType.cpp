#include <Core/System/Net/Sockets/ProtocolType.h>

namespace Tesmo::System::Net::Sockets
{
const EnumDeprecated::NameTable& ProtocolType::Names() const
{
    static constexpr EnumName names[] = {
        {Unknown, "Unknown"}, {IP, "IP"},     {Icmp, "Icmp"},     {Igmp, "Igmp"}, {Tcp, "Tcp"},
        {Udp, "Udp"},         {IPv6, "IPv6"}, {IcmpV6, "IcmpV6"}, {Raw, "Raw"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Net::Sockets
