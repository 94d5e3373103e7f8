#include "Benchmarks.h"
#include "RatioReporter.h"

#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Discovery/Gateway/DiscoveryProductPluginsController.h>
#include <Tests/Support/NetworkNamespace.h>
#include <Tests/Support/TemporaryFolder.h>

#include <dlfcn.h>
#include <filesystem>
#include <ifaddrs.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace Bench
{
namespace
{
using namespace Zelkor::Discovery;
using namespace Zelkor::Discovery::Client;

/// A gateway that finds so many plug-ins in a folder of its own.
class GatewayWithPlugins : public DiscoveryClientDataGatewayW32
{
public:
    explicit GatewayWithPlugins(int plugins)
    {
        for (int index = 0; index < plugins; ++index)
        {
            paths.push_back(folder.Path(std::to_string(index) + ".so").Utf8());
            std::filesystem::copy_file(SAMPLE_PLUGIN, paths.back());
        }
    }

    Tesmo::Sp<Tesmo::System::Collections::Generic::List<Tesmo::Sp<DiscoveryHostProduct>>> GetProducts() override
    {
        return DiscoveryProductPluginsController(folder.Path()).GetProducts();
    }

    const std::vector<std::string>& Paths() const
    {
        return paths;
    }

private:
    TemporaryFolder folder;
    std::vector<std::string> paths;
};

/// The least that a snapshot takes: the kernel's lists, and each plug-in in and out of the process.
void AskSystem(const std::vector<std::string>& plugins)
{
    ifaddrs* list = nullptr;
    benchmark::DoNotOptimize(getifaddrs(&list));
    freeifaddrs(list);
    for (const std::string& path : plugins)
    {
        void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        benchmark::DoNotOptimize(dlsym(library, "GetDiscoveryProductPlugin"));
        dlclose(library);
    }
}

/// Gives the host an even number of adapters, or one, each with an address.
void AddAdapters(const NetworkNamespace& host, int adapters)
{
    const auto address = [&host](const std::string& name, int index)
    { host.Ip("addr add 10.77." + std::to_string(index) + ".2/24 dev " + name); };
    for (int index = 0; index < adapters; index += 2)
    {
        const std::string left = "lan" + std::to_string(index);
        const std::string right = "lan" + std::to_string(index + 1);
        host.Ip("link add " + left + " type veth peer name " + right);
        address(left, index);
        if (index + 1 < adapters)
        {
            address(right, index + 1);
        }
    }
}

/// Runs one round of work over and over on a host with so many adapters.
template <class Round>
void RunOn(benchmark::State& state, int adapters, Round round)
try
{
    const NetworkNamespace host;
    AddAdapters(host, adapters);
    host.Within(
        [&]
        {
            for (auto _ : state)
            {
                round();
            }
        });
}
catch (const std::runtime_error& failure) // network namespaces need root
{
    state.SkipWithError(failure.what());
}
} // namespace

void AddHostComparisons()
{
    for (const int adapters : {1, 8, 64})
    {
        for (const int plugins : {0, 1, 8})
        {
            Compare(
                "Snapshot of a host, " + std::to_string(adapters) + " adapters, " + std::to_string(plugins) +
                    " plug-ins",
                0,
                [=](benchmark::State& state)
                {
                    GatewayWithPlugins gateway(plugins);
                    RunOn(state, adapters, [&] { benchmark::DoNotOptimize(gateway.GetHost()); });
                },
                [=](benchmark::State& state)
                {
                    const GatewayWithPlugins gateway(plugins);
                    RunOn(state, adapters, [&] { AskSystem(gateway.Paths()); });
                });
        }
    }
}
} // namespace Bench
