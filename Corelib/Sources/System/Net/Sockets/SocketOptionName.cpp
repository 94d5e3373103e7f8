#include <Core/System/Net/Sockets/SocketOptionName.h>

namespace Tesmo::System::Net::Sockets
{
const EnumDeprecated::NameTable& SocketOptionName::Names() const
{
    static constexpr EnumName names[] = {
        {Debug, "Debug"},
        {AcceptConnection, "AcceptConnection"},
        {TypeOfService, "TypeOfService"},
        {ReuseAddress, "ReuseAddress"},
        {KeepAlive, "KeepAlive"},
        {MulticastInterface, "MulticastInterface"},
        {MulticastTimeToLive, "MulticastTimeToLive"},
        {MulticastLoopback, "MulticastLoopback"},
        {AddMembership, "AddMembership"},
        {DropMembership, "DropMembership"},
        {DontFragment, "DontFragment"},
        {DontRoute, "DontRoute"},
        {IPv6Only, "IPv6Only"},
        {Broadcast, "Broadcast"},
        {Linger, "Linger"},
        {OutOfBandInline, "OutOfBandInline"},
        {SendBuffer, "SendBuffer"},
        {ReceiveBuffer, "ReceiveBuffer"},
        {SendTimeout, "SendTimeout"},
        {ReceiveTimeout, "ReceiveTimeout"},
        {Error, "Error"},
        {Type, "Type"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Net::Sockets
