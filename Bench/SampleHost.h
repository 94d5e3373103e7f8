#pragma once

#include <Discovery/Protocol/DiscoveryHost.h>
#include <Discovery/Protocol/SignatureBroadcastMessage.h>

namespace Bench
{
/// An adapter, a host with a number of such adapters, and its signature, with values as they occur on a LAN.
Tesmo::Sp<Zelkor::Discovery::NICConfig> SampleAdapter();
Zelkor::Discovery::DiscoveryHost SampleHost(int adapters);
Zelkor::Discovery::SignatureBroadcastMessage SampleSignature(int adapters);
} // namespace Bench
