#include "ManagedHost.h"
#include "PrivateHost.h"

#include <Discovery/Gateway/Platform/AdapterSettings.h>
#include <chrono>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using Zelkor::Discovery::Platform::AdapterSettings;
using Zelkor::Discovery::Platform::ApplyAdapterSettings;
using Zelkor::Discovery::Platform::DisableAddressProbes;

namespace
{

constexpr auto ProbesLimit = 5s;
constexpr auto ApplyLimit = 25s;

std::string Output(const std::string& commands)
{
    Shell("(" + commands + ") >/run/output");
    return ReadText("/run/output");
}

/// Two adapters in the hands of a real manager: v0 with two addresses and a gateway, v1 with one address.
class AdapterSettingsTests : public testing::TestWithParam<Manager>
{
protected:
    void SetUp() override
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

    static void Await(const std::string& name, const std::string& state)
    {
        const auto end = std::chrono::steady_clock::now() + 10s;
        while (State(name) != state && std::chrono::steady_clock::now() < end)
        {
        }
        EXPECT_EQ(state, State(name)) << ReadText("/run/daemons.log");
    }

    /// Everything that managers keep, and every file beside it.
    static std::string Files()
    {
        return Output("find /etc/network /etc/systemd/network /etc/NetworkManager -type f 2>/dev/null | sort | "
                      "while read -r f; do echo \"$f\"; cat \"$f\"; done");
    }

    /// Both steps of a change, each within its limit.
    static int Apply(const AdapterSettings& settings, std::string& remark)
    {
        const auto begin = std::chrono::steady_clock::now();
        DisableAddressProbes(settings);
        const auto probesDone = std::chrono::steady_clock::now();
        const int error = ApplyAdapterSettings(settings, remark);
        EXPECT_LE(probesDone - begin, ProbesLimit + 100ms);
        EXPECT_LE(std::chrono::steady_clock::now() - probesDone, ApplyLimit);
        return error;
    }

    static void ExpectApplied(const AdapterSettings& settings, const std::string& state)
    {
        std::string remark;
        EXPECT_EQ(0, Apply(settings, remark)) << remark << ReadText("/run/daemons.log");
        EXPECT_EQ(state, State(settings.adapterName));
        EXPECT_EQ(GetParam() == Manager::None, remark.find("until the next restart") != std::string::npos) << remark;
    }

    PrivateHost host;
    std::unique_ptr<ManagedHost> managed;

private:
    static inline int peers = 0;
};

/// Managers that stand still, or wait for a cable.
class DaemonTests : public AdapterSettingsTests
{
};

class NetworkManagerTests : public AdapterSettingsTests
{
};

class NetworkdTests : public AdapterSettingsTests
{
};

/// Programs that fail or hang halfway.
class IfupdownTests : public AdapterSettingsTests
{
protected:
    /// A hook for the new address alone.
    static void PutHook(const std::string& command)
    {
        Shell("printf '#!/bin/sh\\n[ \"$IF_ADDRESS\" != 10.2.0.5 ] || " + command +
              "\\n' >/etc/network/if-up.d/00test; chmod +x /etc/network/if-up.d/00test");
    }
};

std::string NameOf(const testing::TestParamInfo<Manager>& info)
{
    return std::array{"None", "NetworkManager", "Networkd", "Ifupdown"}.at(static_cast<std::size_t>(info.param));
}

} // namespace

TEST_P(AdapterSettingsTests, AddressesAndGatewayAreReplacedAndOutlastARestart)
{
    ExpectApplied({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, "10.2.0.5/16 via 10.2.0.1");
    ExpectApplied({"v0", "10.2.0.6", "255.255.0.0", "10.2.0.2"}, "10.2.0.6/16 via 10.2.0.2");
    ExpectApplied({"v0", "10.2.0.6", "255.255.255.0", "0.0.0.0"}, "10.2.0.6/24");
    ExpectApplied({"v0", "10.2.0.6", "255.255.255.0", "10.2.0.3"}, "10.2.0.6/24 via 10.2.0.3");

    EXPECT_EQ("10.7.0.1/24", State("v1"));
    ExpectApplied({"v1", "10.7.0.2", "255.255.255.0", "10.7.0.254"}, "10.7.0.2/24 via 10.7.0.254");
    EXPECT_EQ("10.2.0.6/24 via 10.2.0.3", State("v0"));
    EXPECT_NE(std::string::npos, Output("ip -6 addr show dev v0").find("fd00::1/64"));
    EXPECT_EQ("", Output("find /etc/network /etc/systemd/network -name '.*' -type f"));
    if (GetParam() != Manager::None)
    {
        managed->Stop();
        EXPECT_EQ("", State("v0"));
        managed->Start();
        Await("v0", "10.2.0.6/24 via 10.2.0.3");
        Await("v1", "10.7.0.2/24 via 10.7.0.254");
    }
}

TEST_P(AdapterSettingsTests, WhatIsRefusedAsksNobodyAndChangesNothing)
{
    const std::string files = Files();
    managed->Freeze();
    const auto begin = std::chrono::steady_clock::now();
    for (const AdapterSettings& settings : {AdapterSettings{"v0", "10.2.0.5", "255.255.0.0", "255.255.255.255"},
                                            AdapterSettings{"v0", "10.2.0.5", "255.255.0.0", "10.3.0.1"},
                                            AdapterSettings{"v0", "0.0.0.0", "255.255.0.0", "0.0.0.0"},
                                            AdapterSettings{"v0", "10.2.0.5", "255.0.255.0", "0.0.0.0"},
                                            AdapterSettings{"v9", "10.2.0.5", "255.255.0.0", "10.2.0.1"}})
    {
        std::string remark;
        EXPECT_NE(0, Apply(settings, remark));
        EXPECT_NE("", remark);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
    EXPECT_EQ("10.1.0.1/24 10.1.1.1/24 via 10.1.0.254", State("v0"));
    EXPECT_EQ(files, Files());
}

TEST_P(AdapterSettingsTests, HostileNamesAreNamesOrFailAndTouchNoOtherAdapter)
{
    Shell("for p in b x; do printf '#!/bin/sh\\n: >/run/injected\\n' >/usr/sbin/$p; chmod +x /usr/sbin/$p; done");
    const std::vector<std::string> names = {"a;b", "a\"b", "a*", "$(x)", "-x", "a=v1"};
    AddAdapter("ab");
    for (const std::string& name : names)
    {
        AddAdapter(name);
        if (GetParam() == Manager::Ifupdown)
        {
            Shell("printf '\\niface %s inet manual\\n' '" + name + "' >>/etc/network/interfaces");
        }
    }
    Shell("printf '[Match]\\nName=a* $* -*\\n[Network]\\nLinkLocalAddressing=no\\n' "
          ">/etc/systemd/network/50-all.network");
    managed->Stop();
    managed->Start();
    for (const std::string& name : names)
    {
        SCOPED_TRACE(name);
        const bool works = name != "-x" && GetParam() != Manager::Ifupdown;
        std::string remark;
        EXPECT_EQ(works, Apply({name, "10.6.0.1", "255.255.255.0", "0.0.0.0"}, remark) == 0) << remark;
        EXPECT_EQ(works ? "10.6.0.1/24" : "", State(name));
        Shell("ip -4 addr flush dev '" + name + "'");
        EXPECT_EQ("", State("ab"));
        EXPECT_EQ("10.7.0.1/24", State("v1"));
    }
    EXPECT_NE(0, access("/run/injected", F_OK));
}

TEST_P(DaemonTests, AManagerThatHangsIsAFailureWithinTheLimit)
{
    const std::string files = Files();
    managed->Freeze();
    std::string remark;

    EXPECT_NE(0, Apply({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark));

    EXPECT_NE("", remark);
    EXPECT_EQ("10.1.0.1/24 10.1.1.1/24 via 10.1.0.254", State("v0"));
    EXPECT_EQ(files, Files());
}

TEST_P(DaemonTests, WithoutCableTheAddressWaitsForOne)
{
    Shell("ip link add name cable type veth peer name end; ip link set dev cable up;"
          "printf '[Match]\\nName=cable\\n[Network]\\nDHCP=yes\\n' >/etc/systemd/network/50-cable.network");
    managed->Stop();
    managed->Start();
    std::string remark;

    EXPECT_EQ(0, Apply({"cable", "10.9.0.1", "255.255.255.0", "10.9.0.2"}, remark)) << remark;

    EXPECT_NE("", remark);
    Shell("ip link set dev end up");
    Await("cable", "10.9.0.1/24 via 10.9.0.2");
}

TEST_P(NetworkManagerTests, AFailedChangeIsTakenBackFromTheProfileAndTheAdapter)
{
    Shell("cd /etc/NetworkManager; mount --bind system-connections system-connections;"
          "mount -o remount,ro,bind system-connections"); // the profile can be changed in memory and not be kept
    const std::string profile = "nmcli -g ipv4.method,ipv4.addresses,ipv4.gateway,ipv4.dad-timeout connection show v0";
    const std::string before = Output(profile);
    const std::string files = Files();
    std::string remark;

    EXPECT_NE(0, Apply({"v0", "10.9.0.1", "255.255.255.0", "10.9.0.2"}, remark));

    EXPECT_TRUE(remark.starts_with("NetworkManager: nmcli ended with exit code 1: ")) << remark;
    EXPECT_EQ(std::string::npos, remark.find("not restored")) << remark;
    EXPECT_EQ(before, Output(profile));
    EXPECT_EQ(files, Files());
    Await("v0", "10.1.0.1/24 10.1.1.1/24 via 10.1.0.254");
}

TEST_P(NetworkManagerTests, AnAddressThatWasSetByHandIsReplacedForGood)
{
    AddAdapter("v2");
    Shell("ip addr add 10.8.0.1/24 dev v2; n=0; until nmcli device show v2 | grep -q externally; do "
          "n=$((n + 1)); [ $n -lt 100 ]; sleep .1; done");

    ExpectApplied({"v2", "10.8.0.2", "255.255.255.0", "10.8.0.3"}, "10.8.0.2/24 via 10.8.0.3");

    managed->Stop();
    Shell("ip addr flush dev v2");
    managed->Start();
    Await("v2", "10.8.0.2/24 via 10.8.0.3");
}

TEST_P(NetworkdTests, DropInsOfTheFormerFileCountOn)
{
    Shell(
        "mkdir /etc/systemd/network/10-v0.network.d /run/systemd/network /run/systemd/network/10-v0.network.d;"
        "printf '[Network]\\nAddress=10.4.0.1/24\\nAddress=fd00::9/64\\n' >/etc/systemd/network/10-v0.network.d/a.conf;"
        "printf '[Address]\\nAddress=fd00::a/64\\n' >/run/systemd/network/10-v0.network.d/b.conf");

    ExpectApplied({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, "10.2.0.5/16 via 10.2.0.1");

    const std::string addresses = Output("ip -6 addr show dev v0");
    EXPECT_NE(std::string::npos, addresses.find("fd00::9/64"));
    EXPECT_NE(std::string::npos, addresses.find("fd00::a/64"));
}

TEST_P(IfupdownTests, AFailedChangeLeavesTheFormerFileAndTheFormerAddresses)
{
    Shell("ln -s /etc/network/interfaces.d/v0 /etc/network/link; chmod 640 /etc/network/interfaces.d/v0;"
          "chgrp netdev /etc/network/interfaces.d/v0; sed -i s,interfaces.d/..,link, /etc/network/interfaces");
    const std::string files = Files();
    PutHook("{ echo out of order; exit 9; }");
    std::string remark;

    EXPECT_NE(0, Apply({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark));

    EXPECT_NE(std::string::npos, remark.find("out of order")) << remark;
    Shell("rm /etc/network/if-up.d/00test");
    EXPECT_EQ(files, Files());
    EXPECT_EQ("10.1.0.1/24 10.1.1.1/24 via 10.1.0.254", State("v0"));
    ExpectApplied({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, "10.2.0.5/16 via 10.2.0.1");
    EXPECT_EQ("symbolic link\n640 netdev\n",
              Output("stat -c %F /etc/network/link; stat -c '%a %G' /etc/network/interfaces.d/v0"));
}

TEST_P(IfupdownTests, AHangingHookIsAFailureWithinTheLimit)
{
    const std::string files = Files();
    PutHook("sleep 100");
    std::string remark;

    EXPECT_NE(0, Apply({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark));

    EXPECT_NE("", remark);
    EXPECT_EQ("10.1.0.1/24 10.1.1.1/24 via 10.1.0.254", State("v0"));
    Shell("rm /etc/network/if-up.d/00test");
    EXPECT_EQ(files, Files());
}

TEST_P(IfupdownTests, AnAdapterUnderASharedNameIsRefused)
{
    Shell("printf 'auto /v2=office\\niface office inet static\\n  address 10.8.0.1/24\\n' >>/etc/network/interfaces");
    AddAdapter("v2");
    Shell("ifup v2=office");
    const std::string files = Files();
    std::string remark;

    EXPECT_NE(0, Apply({"v2", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark));

    EXPECT_NE(std::string::npos, remark.find("office")) << remark;
    EXPECT_EQ("10.8.0.1/24", State("v2"));
    EXPECT_EQ(files, Files());
}

INSTANTIATE_TEST_SUITE_P(, AdapterSettingsTests,
                         testing::Values(Manager::None, Manager::NetworkManager, Manager::Networkd, Manager::Ifupdown),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(, DaemonTests, testing::Values(Manager::NetworkManager, Manager::Networkd), NameOf);
INSTANTIATE_TEST_SUITE_P(, NetworkManagerTests, testing::Values(Manager::NetworkManager), NameOf);
INSTANTIATE_TEST_SUITE_P(, NetworkdTests, testing::Values(Manager::Networkd), NameOf);
INSTANTIATE_TEST_SUITE_P(, IfupdownTests, testing::Values(Manager::Ifupdown), NameOf);
