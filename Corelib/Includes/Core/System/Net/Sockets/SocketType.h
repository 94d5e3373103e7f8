#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::Net::Sockets
{
/// What a socket carries (winsock2.h: SOCK_STREAM and the like).
class SocketType : public EnumDeprecated
{
public:
    enum Constant
    {
        Unknown = -1,
        Stream = 1,
        Dgram = 2,
        Raw = 3,
        Rdm = 4,
        Seqpacket = 5,
    };

    /// A number that no constant has is kept, and prints in decimal.
    SocketType(Constant constant) : EnumDeprecated(constant) {}
    explicit SocketType(int number) : EnumDeprecated(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::Net::Sockets
