#include "DiscoveryPorts.h"

namespace Zelkor::Discovery
{
int DiscoveryPorts::GetLocalPort() const
{
    return 12000;
}

int DiscoveryPorts::GetRemotePort() const
{
    return 12001;
}

Tesmo::Sp<DiscoveryPorts> DiscoveryPorts::Default()
{
    static const Tesmo::Sp<DiscoveryPorts> ports(new DiscoveryPorts);
    return ports;
}
} // namespace Zelkor::Discovery
