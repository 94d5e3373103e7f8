#include "SampleHost.h"

#include <Discovery/Protocol/DiscoveryVersion.h>

namespace Bench
{
using namespace Tesmo;
using namespace Tesmo::System::Net;
using namespace Zelkor::Discovery;

Sp<NICConfig> SampleAdapter()
{
    return Sp<NICConfig>(new NICConfig("lan0", MACAddress("02:00:00:00:00:01"), IPAddress::Parse("10.77.0.2"),
                                       IPAddress::Parse("255.255.255.0"), IPAddress::Parse("10.77.0.1"), "Unknown"));
}

DiscoveryHost SampleHost(int adapters)
{
    DiscoveryHost host("STUDIO4", false, false, true, "Linux PC", "Computer", "4711");
    for (int index = 0; index < adapters; ++index)
    {
        host.AddNIC(SampleAdapter());
    }
    return host;
}

SignatureBroadcastMessage SampleSignature(int adapters)
{
    return SignatureBroadcastMessage(DiscoveryVersion(), SampleHost(adapters), SampleAdapter(), true);
}
} // namespace Bench
