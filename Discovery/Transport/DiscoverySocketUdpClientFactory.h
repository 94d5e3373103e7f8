#pragma once

#include <Discovery/Transport/IDiscoverySocketFactory.h>

namespace Zelkor::Discovery
{
/// Makes DiscoverySocketUdpClient objects that share one pair of ports.
class DiscoverySocketUdpClientFactory : public IDiscoverySocketFactory
{
public:
    /// @param boundPort   port that each socket binds, 0 to 65535
    /// @param targetPort port that each socket sends to, 0 to 65535
    DiscoverySocketUdpClientFactory(int boundPort, int targetPort);

    Tesmo::Sp<IDiscoverySocket> Create(const Tesmo::System::Net::IPAddress& address) override;

private:
    int localPort;
    int remotePort;
};
} // namespace Zelkor::Discovery
