#include "AdapterSettingsTest.h"

#include <array>
#include <chrono>

using namespace std::chrono_literals;
using Zelkor::Discovery::Platform::ApplyAdapterSettings;
using Zelkor::Discovery::Platform::DisableAddressProbes;

namespace
{

constexpr auto ProbesLimit = 5s;
constexpr auto ApplyLimit = 25s;

} // namespace

void AdapterSettingsTests::SetUp()
{
    if (!host.IsEntered())
    {
        GTEST_SKIP() << "the system refuses namespaces";
    }
    managed = std::make_unique<ManagedHost>(GetParam());
    if (!managed->IsInstalled())
    {
        GTEST_SKIP() << "the manager is not installed";
    }
    AddAdapter("v0");
    AddAdapter("v1");
    managed->Configure("v0", "10.1.0.1/24 10.1.1.1/24", "10.1.0.254");
    managed->Configure("v1", "10.7.0.1/24", "");
    managed->Start();
    Await("v0", "10.1.0.1/24 10.1.1.1/24 via 10.1.0.254");
}

std::string AdapterSettingsTests::Output(const std::string& commands)
{
    Shell("(" + commands + ") >/run/output");
    return ReadText("/run/output");
}

void AdapterSettingsTests::AddAdapter(const std::string& name)
{
    const std::string peer = "peer" + std::to_string(++peers);
    Shell("ip link add name '" + name + "' type veth peer name " + peer + "; ip link set dev " + peer +
          " up; ip link set dev '" + name + "' up");
}

std::string AdapterSettingsTests::State(const std::string& name)
{
    return Output("{ ip -4 -o addr show dev '" + name + "' | sed 's/.*inet \\([^ ]*\\).*/\\1/' | sort; " +
                  "ip -4 route show default dev '" + name + "' | grep -o 'via [^ ]*' || true; } | xargs | tr -d '\\n'");
}

void AdapterSettingsTests::Await(const std::string& name, const std::string& state)
{
    const auto end = std::chrono::steady_clock::now() + 10s;
    while (State(name) != state && std::chrono::steady_clock::now() < end)
    {
    }
    EXPECT_EQ(state, State(name)) << ReadText("/run/daemons.log");
}

std::string AdapterSettingsTests::Files()
{
    return Output("find /etc/network /etc/systemd/network /etc/NetworkManager -type f 2>/dev/null | sort | "
                  "while read -r f; do echo \"$f\"; cat \"$f\"; done");
}

int AdapterSettingsTests::Apply(const AdapterSettings& settings, std::string& remark)
{
    const auto begin = std::chrono::steady_clock::now();
    DisableAddressProbes(settings);
    const auto probesDone = std::chrono::steady_clock::now();
    const int error = ApplyAdapterSettings(settings, remark);
    EXPECT_LE(probesDone - begin, ProbesLimit + 100ms);
    EXPECT_LE(std::chrono::steady_clock::now() - probesDone, ApplyLimit);
    return error;
}

void AdapterSettingsTests::ExpectApplied(const AdapterSettings& settings, const std::string& state)
{
    std::string remark;
    EXPECT_EQ(0, Apply(settings, remark)) << remark << ReadText("/run/daemons.log");
    EXPECT_EQ(state, State(settings.adapterName));
    EXPECT_EQ(GetParam() == Manager::None, remark.find("until the next restart") != std::string::npos) << remark;
}

std::string AdapterSettingsTests::Refusal(const AdapterSettings& settings)
{
    const std::string state = State(settings.adapterName);
    std::string remark;
    EXPECT_NE(0, Apply(settings, remark));
    EXPECT_NE("", remark);
    EXPECT_EQ(std::string::npos, remark.find("not restored")) << remark;
    Await(settings.adapterName, state);
    return remark;
}

std::string AdapterSettingsTests::RefusalWithoutTrace(const AdapterSettings& settings)
{
    const std::string files = Files();
    const std::string remark = Refusal(settings);
    EXPECT_EQ(files, Files());
    return remark;
}

std::string NameOf(const testing::TestParamInfo<Manager>& info)
{
    return std::array{"None", "NetworkManager", "Networkd", "Ifupdown"}.at(static_cast<std::size_t>(info.param));
}
