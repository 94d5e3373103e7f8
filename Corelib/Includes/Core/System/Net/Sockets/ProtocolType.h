#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::Net::Sockets
{
/// The protocol of a socket (IANA protocol numbers).
class ProtocolType : public EnumDeprecated
{
public:
    enum Constant
    {
        Unknown = -1,
        IP = 0,
        Icmp = 1,
        Igmp = 2,
        Tcp = 6,
        Udp = 17,
        IPv6 = 41,
        IcmpV6 = 58,
        Raw = 255,
    };

    /// A number that no constant has is kept, and prints in decimal.
    ProtocolType(Constant constant) : EnumDeprecated(constant) {}
    explicit ProtocolType(int number) : EnumDeprecated(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::Net::Sockets
