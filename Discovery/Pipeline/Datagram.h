#pragma once

#include <Core/System/Net/IPEndPoint.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>

namespace Zelkor::Discovery
{
/// One datagram as it was received.
struct Datagram
{
    Tesmo::Sp<Tesmo::System::String> text; ///< each byte of the receive buffer as the character with its number
    Tesmo::Sp<Tesmo::System::Net::IPEndPoint> sender;
};
} // namespace Zelkor::Discovery
