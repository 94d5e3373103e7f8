#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::Net::Sockets
{
/// The layer that an option of a socket belongs to (winsock2.h: SOL_SOCKET, IPPROTO_IP and the like).
class SocketOptionLevel : public EnumDeprecated
{
public:
    enum Constant
    {
        IP = 0,
        Tcp = 6,
        Udp = 17,
        IPv6 = 41,
        Socket = 65535,
    };

    /// A number that no constant has is kept, and prints in decimal.
    SocketOptionLevel(Constant constant) : EnumDeprecated(constant) {}
    explicit SocketOptionLevel(int number) : EnumDeprecated(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::Net::Sockets
