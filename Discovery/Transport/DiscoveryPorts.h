#pragma once

#include <Core/System/Sp.h>

namespace Zelkor::Discovery
{
/// The two UDP ports of the discovery protocol, as the client sees them. Announcements go to a port on which clients
/// do not listen.
class DiscoveryPorts
{
public:
    virtual ~DiscoveryPorts() = default;

    /// The port that every client socket binds, where requests arrive: 12000.
    virtual int GetLocalPort() const;

    /// The port that every datagram of a client is sent to, where the administration side listens: 12001.
    virtual int GetRemotePort() const;

    /// The ports that a client uses when it is given no others: one instance a process, made at first use.
    static Tesmo::Sp<DiscoveryPorts> Default();
};
} // namespace Zelkor::Discovery
