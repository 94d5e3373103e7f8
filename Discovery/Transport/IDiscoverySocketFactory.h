#pragma once

#include <Core/System/Net/IPAddress.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Discovery/Transport/IDiscoverySocket.h>

namespace Zelkor::Discovery
{
/// Makes short-lived sockets for answers that must leave by a given adapter.
class IDiscoverySocketFactory : public Tesmo::System::Object
{
public:
    /// A new socket that sends from one local address, by the adapter that has it, and never takes a request away from
    /// the shared socket.
    /// @throws Tesmo::System::Net::Sockets::SocketException  the address cannot be bound (10049: the host hasn't got it)
    virtual Tesmo::Sp<IDiscoverySocket> Create(const Tesmo::System::Net::IPAddress& address) = 0;
};
} // namespace Zelkor::Discovery
