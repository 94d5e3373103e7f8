#pragma once

#include <Core/System/FlagsEnum.h>

namespace Tesmo::System::Net::Sockets
{
/// How one transfer of a socket is done (winsock2.h: MSG_OOB and the like).
class SocketFlags : public FlagsEnum
{
public:
    enum Constant
    {
        None = 0,
        OutOfBand = 1,
        Peek = 2,
        DontRoute = 4,
        MaxIOVectorLength = 16,
        Truncated = 256,
        ControlDataTruncated = 512,
        Broadcast = 1024,
        Multicast = 2048,
        Partial = 32768,
    };

    /// A number is kept with the bits that no constant has; it prints in decimal then.
    SocketFlags(Constant constant) : FlagsEnum(constant) {}
    explicit SocketFlags(int number) : FlagsEnum(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::Net::Sockets
