#include "DiscoverySocketUdpClientFactory.h"

#include <Discovery/Transport/DiscoverySocketUdpClient.h>

namespace Zelkor::Discovery
{
DiscoverySocketUdpClientFactory::DiscoverySocketUdpClientFactory(int boundPort, int targetPort)
    : localPort(boundPort),
      remotePort(targetPort)
{
}

Tesmo::Sp<IDiscoverySocket> DiscoverySocketUdpClientFactory::Create(const Tesmo::System::Net::IPAddress& address)
{
    return DiscoverySocketUdpClient::ForSending(localPort, remotePort, address);
}
} // namespace Zelkor::Discovery
