#include "Benchmarks.h"

#include <Tests/Support/ClientProcess.h>
#include <Tests/Support/NetworkNamespace.h>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>

namespace Bench
{
namespace
{
/// The sum of the numbers behind a name in a file of lines "name: number".
long Sum(const std::filesystem::path& path, const std::string& name)
{
    long sum = 0;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
    {
        if (const std::size_t at = line.find(name); at != std::string::npos)
        {
            sum += std::stol(line.substr(at + name.size()));
        }
    }
    return sum;
}

/// Context switches of all threads so far: a thread that wakes shows here.
long Switches(const std::filesystem::path& process)
{
    long sum = 0;
    for (const auto& thread : std::filesystem::directory_iterator(process / "task"))
    {
        sum += Sum(thread.path() / "status", "_ctxt_switches:");
    }
    return sum;
}

/// One minute of the real program with nothing to do.
void Idle(benchmark::State& state)
try
{
    using namespace std::chrono_literals;
    const NetworkNamespace host;
    host.Ip("link add lan0 type veth peer name wall0");
    host.Ip("addr add 10.77.0.2/24 dev lan0");
    host.Ip("link set lan0 up");
    const HostFolders folders;
    std::optional<ClientProcess> client;
    host.Within([&] { client.emplace(folders); });
    if (!client->WaitForLog("Message sent") || !client->WaitForLog("---Waiting for IP changes..."))
    {
        throw std::runtime_error("the client does not start");
    }
    const std::filesystem::path process = "/proc/" + std::to_string(client->Id());
    for (auto _ : state)
    {
        std::this_thread::sleep_for(1s); // the threads settle in their waits
        const long before = Switches(process);
        std::this_thread::sleep_for(60s);
        state.counters["wakes"] = static_cast<double>(Switches(process) - before);
        // Without the pages of program and libraries, of which the system maps as many as it has at hand.
        state.counters["own KiB"] = static_cast<double>(Sum(process / "status", "RssAnon:"));
    }
}
catch (const std::runtime_error& failure) // network namespaces need root
{
    state.SkipWithError(failure.what());
}
} // namespace

void AddIdleClient()
{
    benchmark::RegisterBenchmark("Idle client", Idle)->Iterations(1)->UseRealTime();
}
} // namespace Bench
