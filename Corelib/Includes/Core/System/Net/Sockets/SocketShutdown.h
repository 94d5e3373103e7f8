#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::Net::Sockets
{
/// The direction that Socket::Shutdown ends.
class SocketShutdown : public EnumDeprecated
{
public:
    enum Constant
    {
        Receive = 0,
        Send = 1,
        Both = 2,
    };

    /// A number that no constant has is kept, and prints in decimal.
    SocketShutdown(Constant constant) : EnumDeprecated(constant) {}
    explicit SocketShutdown(int number) : EnumDeprecated(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::Net::Sockets
