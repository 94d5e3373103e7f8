#include "Benchmarks.h"
#include "RatioReporter.h"

#include "../Tests/Lan/NetworkNamespace.h"

#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>

#include <ifaddrs.h>
#include <memory>
#include <string>

namespace Bench
{
namespace
{
/// A host with an even number of adapters, or one, each with an address; null where namespaces need root.
std::shared_ptr<Lan::NetworkNamespace> HostWith(int adapters)
{
    if (!Lan::NetworkNamespace::Supported())
    {
        return nullptr;
    }
    auto network = std::make_shared<Lan::NetworkNamespace>();
    const auto address = [&network](const std::string& name, int index)
    { network->Ip("addr add 10.77." + std::to_string(index) + ".2/24 dev " + name); };
    for (int index = 0; index < adapters; index += 2)
    {
        const std::string left = "lan" + std::to_string(index);
        const std::string right = "lan" + std::to_string(index + 1);
        network->Ip("link add " + left + " type veth peer name " + right);
        address(left, index);
        if (index + 1 < adapters)
        {
            address(right, index + 1);
        }
    }
    return network;
}

/// Runs one round of work over and over on a host with so many adapters.
template <class Round>
void RunOn(benchmark::State& state, int adapters, Round round)
{
    const std::shared_ptr<Lan::NetworkNamespace> network = HostWith(adapters);
    if (network == nullptr)
    {
        state.SkipWithError("network namespaces need root");
        return;
    }
    network->Within(
        [&]
        {
            for (auto _ : state)
            {
                round();
            }
        });
}
} // namespace

void AddHostComparisons()
{
    for (const int adapters : {1, 8, 64})
    {
        Compare(
            "Snapshot of a host, " + std::to_string(adapters) + " adapters", 0,
            [adapters](benchmark::State& state)
            {
                Zelkor::Discovery::Client::DiscoveryClientDataGatewayW32 gateway;
                RunOn(state, adapters, [&gateway] { benchmark::DoNotOptimize(gateway.GetHost()); });
            },
            [adapters](benchmark::State& state)
            {
                RunOn(state, adapters,
                      []
                      {
                          ifaddrs* list = nullptr;
                          benchmark::DoNotOptimize(getifaddrs(&list));
                          freeifaddrs(list);
                      });
            });
    }
}
} // namespace Bench
