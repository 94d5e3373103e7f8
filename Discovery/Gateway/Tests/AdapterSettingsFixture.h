#pragma once

#include <Discovery/Gateway/Platform/AdapterSettings.h>
#include <Tests/Support/IsolatedTest.h>
#include <Tests/Support/ManagedHost.h>
#include <array>
#include <chrono>
#include <memory>
#include <string>

/// Two adapters in the hands of a real manager: v0 with two addresses and a gateway, v1 with one address.
class AdapterSettingsFixture : public IsolatedTest<PrivateHost>, public testing::WithParamInterface<Manager>
{
protected:
    using AdapterSettings = Zelkor::Discovery::Client::Platform::AdapterSettings;

    void SetUp() override
    {
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

    /// What shell commands write to their standard output.
    static std::string Output(const std::string& commands)
    {
        Shell("(" + commands + ") >/run/output");
        return ReadText("/run/output");
    }

    /// Adds an Ethernet adapter that is up and has a cable.
    static void AddAdapter(const std::string& name)
    {
        const std::string peer = "peer" + std::to_string(++peers);
        Shell("ip link add name '" + name + "' type veth peer name " + peer + "; ip link set dev " + peer +
              " up; ip link set dev '" + name + "' up");
    }

    /// IPv4 addresses in ascending order, and gateways.
    static std::string State(const std::string& name)
    {
        return Output("{ ip -4 -o addr show dev '" + name + "' | sed 's/.*inet \\([^ ]*\\).*/\\1/' | sort; " +
                      "ip -4 route show default dev '" + name +
                      "' | grep -o 'via [^ ]*' || true; } | xargs | tr -d '\\n'");
    }

    /// Expects the state within ten seconds.
    static void Await(const std::string& name, const std::string& state)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (State(name) != state && std::chrono::steady_clock::now() < end)
        {
        }
        EXPECT_EQ(state, State(name)) << ReadText("/run/daemons.log");
    }

    /// Everything that managers keep, and every file beside it.
    static std::string Files()
    {
        return Output("grep -r '' /etc/network /etc/systemd/network /etc/NetworkManager 2>/dev/null | sort");
    }

    /// A change within its limit.
    /// @returns 0, or the error
    static int Apply(const AdapterSettings& settings, std::string& remark)
    {
        const auto begin = std::chrono::steady_clock::now();
        const auto outcome = Zelkor::Discovery::Client::Platform::ChangeAdapterSettings(settings);
        EXPECT_LE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(25));
        remark = outcome.remark;
        return outcome.error;
    }

    static void ExpectApplied(const AdapterSettings& settings, const std::string& state)
    {
        std::string remark;
        EXPECT_EQ(0, Apply(settings, remark)) << remark << ReadText("/run/daemons.log");
        EXPECT_EQ(state, State(settings.adapterName));
        EXPECT_EQ(GetParam() == Manager::None, remark.find("until the next restart") != std::string::npos) << remark;
    }

    /// A change that fails and leaves the adapter's addresses as they were.
    /// @returns the reason
    static std::string Refusal(const AdapterSettings& settings)
    {
        const std::string state = State(settings.adapterName);
        std::string remark;
        EXPECT_NE(0, Apply(settings, remark));
        EXPECT_NE("", remark);
        EXPECT_EQ(std::string::npos, remark.find("not restored")) << remark;
        Await(settings.adapterName, state);
        return remark;
    }

    /// Likewise, and leaves every file as it was.
    static std::string RefusalWithoutTrace(const AdapterSettings& settings)
    {
        const std::string files = Files();
        const std::string remark = Refusal(settings);
        EXPECT_EQ(files, Files());
        return remark;
    }

    std::unique_ptr<ManagedHost> managed;

private:
    static inline int peers = 0;
};

inline std::string NameOf(const testing::TestParamInfo<Manager>& info)
{
    return std::array{"None", "NetworkManager", "Networkd", "Ifupdown"}.at(static_cast<std::size_t>(info.param));
}
