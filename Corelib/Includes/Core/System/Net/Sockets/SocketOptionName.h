#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::Net::Sockets
{
/// An option of a socket (winsock2.h, ws2tcpip.h). Numbers of different levels overlap; a number prints by its name at
/// the level of the socket where it has one there.
class SocketOptionName : public EnumDeprecated
{
public:
    enum Constant
    {
        Debug = 1,
        NoDelay = 1, ///< level Tcp
        AcceptConnection = 2,
        TypeOfService = 3, ///< level IP
        ReuseAddress = 4,
        IpTimeToLive = 4, ///< level IP
        KeepAlive = 8,
        MulticastInterface = 9,   ///< levels IP and IPv6
        MulticastTimeToLive = 10, ///< levels IP and IPv6
        MulticastLoopback = 11,   ///< levels IP and IPv6
        AddMembership = 12,       ///< levels IP and IPv6
        DropMembership = 13,      ///< levels IP and IPv6
        DontFragment = 14,        ///< level IP
        DontRoute = 16,
        IPv6Only = 27, ///< level IPv6
        Broadcast = 32,
        Linger = 128,
        OutOfBandInline = 256,
        SendBuffer = 4097,
        ReceiveBuffer = 4098,
        SendTimeout = 4101,
        ReceiveTimeout = 4102,
        Error = 4103,
        Type = 4104,
    };

    /// A number that no constant has is kept, and prints in decimal.
    SocketOptionName(Constant constant) : EnumDeprecated(constant) {}
    explicit SocketOptionName(int number) : EnumDeprecated(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::Net::Sockets
