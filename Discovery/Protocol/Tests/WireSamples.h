#pragma once

#include <Discovery/Protocol/DiscoveryHost.h>
#include <Discovery/Protocol/DiscoveryMessage.h>

#include <string>
#include <vector>

namespace Zelkor::Discovery
{
/// A message of each kind as an object and as its exact bytes.
struct WireSample
{
    Tesmo::Sp<DiscoveryMessage> message;
    std::string text;
};

const std::string& SampleHostText();
const std::string& SampleNICText();

Tesmo::Sp<NICConfig> SampleNIC();
DiscoveryHost SampleHost();
std::vector<WireSample> WireSamples();
} // namespace Zelkor::Discovery
