#include <Discovery/Transport/DiscoverySocketUdpClientFactory.h>

#include <Discovery/Transport/DiscoverySocketUdpClient.h>

namespace Zelkor::Discovery
{
DiscoverySocketUdpClientFactory::DiscoverySocketUdpClientFactory(int localPort, int remotePort)
    : localPort(localPort), remotePort(remotePort)
{
}

Tesmo::Sp<IDiscoverySocket> DiscoverySocketUdpClientFactory::Create(const Tesmo::System::Net::IPAddress& address)
{
    return Tesmo::Sp<IDiscoverySocket>(new DiscoverySocketUdpClient(localPort, remotePort, address));
}
} // namespace Zelkor::Discovery
