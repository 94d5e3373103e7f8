#include "AdapterSettingsFixture.h"

#include <chrono>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

using namespace std::chrono_literals;

using AdapterSettingsTests = AdapterSettingsFixture;

/// Managers that wait for a cable.
using DaemonTests = AdapterSettingsFixture;

using NetworkdTests = AdapterSettingsFixture;

TEST_P(AdapterSettingsTests, AddressesAndGatewayAreReplacedAndOutlastARestart)
{
    if (GetParam() == Manager::None)
    {
        shutdown(host.StartSilentBus(), SHUT_RDWR); // a socket that a bus has left behind counts as no bus
    }
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

TEST_P(AdapterSettingsTests, WhatIsRefusedAsksNobodyAndAManagerThatHangsIsAFailureWithinTheLimit)
{
    managed->Freeze();
    const auto begin = std::chrono::steady_clock::now();
    RefusalWithoutTrace({"v0", "10.2.0.5", "255.255.0.0", "10.3.0.1"});
    std::string remark;
    EXPECT_NE(0, Apply({"v9", "10.2.0.5", "255.255.0.0", "10.2.0.1"}, remark)) << "there is none";
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 2s);
    if (GetParam() == Manager::NetworkManager || GetParam() == Manager::Networkd)
    {
        RefusalWithoutTrace({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"});
    }
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

TEST_P(NetworkdTests, AnAdapterThatWaitsForItsFileIsRefused)
{
    managed.reset();
    Shell("umount /sys");
    managed = std::make_unique<ManagedHost>(GetParam());
    Shell("mount -o remount,rw /sys"); // writable: the daemon waits for udev before it looks at an adapter
    managed->Start();

    const std::string remark = RefusalWithoutTrace({"v0", "10.2.0.5", "255.255.0.0", "10.2.0.1"});

    EXPECT_NE(std::string::npos, remark.find("has not chosen")) << remark;
}

INSTANTIATE_TEST_SUITE_P(, AdapterSettingsTests,
                         testing::Values(Manager::None, Manager::NetworkManager, Manager::Networkd, Manager::Ifupdown),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(, DaemonTests, testing::Values(Manager::NetworkManager, Manager::Networkd), NameOf);
INSTANTIATE_TEST_SUITE_P(, NetworkdTests, testing::Values(Manager::Networkd), NameOf);
