#include "NetworkNamespace.h"

#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <future>
#include <gtest/gtest.h>

using namespace Zelkor::Discovery;
using namespace Zelkor::Discovery::Client;

TEST(RealHostTests, TheSnapshotShowsTheMachineAsItIsNow)
{
    const NetworkNamespace network;
    if (!network.IsEntered())
    {
        GTEST_SKIP() << "the system refuses network namespaces";
    }
    Shell("hostname real-node; ip link add lan type veth peer name other; ip link set lan up; ip link set other up;"
          "ip addr add 10.7.0.1/16 dev lan; ip route add default via 10.7.0.254");
    DiscoveryClientDataGatewayW32 gateway;

    const DiscoveryHost before = gateway.GetHost();
    std::future<bool> change = std::async(std::launch::async, [&] { return gateway.RunIPChangeWatcher(); });
    while (change.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
    {
        Shell("ip addr replace 10.8.0.1/16 dev lan; ip addr flush dev lan");
    }
    Shell("ip addr add 10.9.0.1/16 dev lan");
    const DiscoveryHost after = gateway.GetHost();

    EXPECT_TRUE(change.get());
    EXPECT_EQ("real-node", before.HostName.Utf8());
    EXPECT_EQ("Linux PC", before.DeviceType.Utf8());
    EXPECT_EQ("Computer", before.DeviceFamily.Utf8());
    ASSERT_EQ(2, before.NICs->Count());
    const auto lanOf = [](const DiscoveryHost& host)
    { return (*host.NICs)[(*host.NICs)[0]->FriendlyName.Utf8() == "lan" ? 0 : 1]; };
    EXPECT_EQ("10.7.0.1", lanOf(before)->IPAddress.ToString().Utf8());
    EXPECT_EQ("255.255.0.0", lanOf(before)->SubNetMask.ToString().Utf8());
    EXPECT_EQ("10.7.0.254", lanOf(before)->DefaultGateway.ToString().Utf8());
    EXPECT_EQ("10.9.0.1", lanOf(after)->IPAddress.ToString().Utf8());
    EXPECT_FALSE(lanOf(after)->HasDefaultGateway);
}
