#include "AdapterSettingsFixture.h"

class NetworkManagerTests : public AdapterSettingsFixture
{
protected:
    /// Another address for an adapter.
    static AdapterSettings Other(const char* adapter)
    {
        return {adapter, "10.9.0.1", "255.255.255.0", "10.9.0.2"};
    }

    static void LetProfilesBeChangedInMemoryOnly()
    {
        Shell("cd /etc/NetworkManager; mount --bind system-connections system-connections;"
              "mount -o remount,ro,bind system-connections");
    }

    static void LetNmcliFailAfter(const std::string& words)
    {
        Shell("printf '#!/bin/sh\\n/usr/bin/nmcli \"$@\" || exit\\ncase $* in *\"" + words +
              "\"*) exit 1; esac\\n' >/usr/sbin/nmcli; chmod +x /usr/sbin/nmcli");
    }

    /// Before the manager starts: a running one may see the adapter without its address first, and leaves it alone
    /// then.
    void AddAdapterWithAddressSetByHand(const std::string& name)
    {
        managed->Stop();
        AddAdapter(name);
        Shell("ip addr add 10.8.0.1/24 dev " + name);
        managed->Start();
        Shell("nmcli device show " + name + " | grep -q externally");
    }
};

TEST_P(NetworkManagerTests, AFailedChangeIsTakenBackFromTheProfileAndTheAdapter)
{
    AddAdapter("v2");
    LetNmcliFailAfter("connection add");
    RefusalWithoutTrace(Other("v2"));
    EXPECT_EQ(std::string::npos, Output("nmcli -g NAME connection show").find("Zelkor")) << "it was added all the same";

    Shell("rm /usr/sbin/nmcli; nmcli connection modify v0 ipv4.gateway '' ipv4.routes '0.0.0.0/0 10.1.0.254';"
          "nmcli connection add type ethernet ifname v2 con-name v2 autoconnect no ipv4.method disabled");
    LetProfilesBeChangedInMemoryOnly();
    const std::string profile = "nmcli -g ipv4.method,ipv4.addresses,ipv4.routes,ipv4.dad-timeout connection show v0";
    const std::string before = Output(profile);
    const std::string remark = RefusalWithoutTrace(Other("v0"));
    EXPECT_TRUE(remark.starts_with("NetworkManager: nmcli ended with exit code 1: ")) << remark;
    EXPECT_EQ(before, Output(profile));

    RefusalWithoutTrace(Other("v2")); // brought up for the change, down again
    EXPECT_EQ("disabled\n", Output("nmcli -g ipv4.method connection show v2"));
}

TEST_P(NetworkManagerTests, AfterAFailedChangeTheFilesOfProfilesCountAsBefore)
{
    AddAdapterWithAddressSetByHand("v2");

    LetNmcliFailAfter("autoconnect yes"); // the last step
    Refusal(Other("v0"));
    LetNmcliFailAfter("device reapply");
    std::string remark;
    EXPECT_NE(0, Apply(Other("v2"), remark));

    Shell(
        "sed -i s/10.1.1.1/10.1.1.9/ /etc/NetworkManager/system-connections/v0.nmconnection; nmcli connection reload");
    EXPECT_EQ("10.1.0.1/24, 10.1.1.9/24\n", Output("nmcli -g ipv4.addresses connection show v0"));
    EXPECT_EQ("", Output("find /etc/NetworkManager/system-connections -name 'v2*'")) << "a restart forgets it";
}

TEST_P(NetworkManagerTests, ADefaultRouteAmongTheRoutesIsReplacedToo)
{
    const std::string kept = "10.50.0.0/16 10.1.0.253, 0.0.0.0/0 10.1.0.252 table=7";
    const std::string routes = "0.0.0.0/0 10.1.0.254, " + kept;
    Shell("nmcli connection modify v0 ipv4.gateway '' ipv4.routes '" + routes + "'; nmcli device reapply v0");

    ExpectApplied({"v0", "10.1.0.5", "255.255.0.0", "10.1.0.2"}, "10.1.0.5/16 via 10.1.0.2");

    EXPECT_EQ(kept + "\n", Output("nmcli -g ipv4.routes connection show v0"));
}

TEST_P(NetworkManagerTests, AnAddressThatWasSetByHandIsReplacedForGood)
{
    AddAdapterWithAddressSetByHand("v2");

    ExpectApplied({"v2", "10.8.0.2", "255.255.255.0", "10.8.0.3"}, "10.8.0.2/24 via 10.8.0.3");

    managed->Stop();
    Shell("ip addr flush dev v2");
    managed->Start();
    Await("v2", "10.8.0.2/24 via 10.8.0.3");
}

INSTANTIATE_TEST_SUITE_P(, NetworkManagerTests, testing::Values(Manager::NetworkManager), NameOf);
