#include <Discovery/Gateway/Platform/Adapters.h>
#include <Tests/Support/Descriptor.h>
#include <Tests/Support/IsolatedTest.h>
#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <net/if.h>
#include <optional>
#include <unistd.h>

using namespace Zelkor::Discovery::Client::Platform;

class AdaptersTests : public IsolatedTest<PrivateNetwork>
{
protected:
    static std::map<std::string, Adapter> ReadByName()
    {
        std::vector<Adapter> adapters;
        EXPECT_EQ(0, ReadAdapters(adapters));
        EXPECT_TRUE(std::is_sorted(adapters.begin(), adapters.end(),
                                   [](const Adapter& a, const Adapter& b) { return a.index < b.index; }));
        std::map<std::string, Adapter> byName;
        for (const Adapter& adapter : adapters)
        {
            byName[adapter.friendlyName] = adapter;
        }
        EXPECT_EQ(adapters.size(), byName.size());
        return byName;
    }

    static std::string Texts(const Adapter& adapter)
    {
        return std::string(adapter.ipAddressText) + "|" + adapter.ipMaskText + "|" + adapter.gatewayText;
    }
};

TEST_F(AdaptersTests, EachAdapterButLoopbackShowsItsFirstAddressAlone)
{
    std::vector<Adapter> none(1);
    EXPECT_NE(0, ReadAdapters(none));
    EXPECT_TRUE(none.empty());
    Shell("ip link add none type veth peer name one; ip link set none up; ip link set one up;"
          "ip link add two type veth peer name down address 02:00:00:00:00:0a; ip link set two up;"
          "ip addr add 10.1.0.1/24 dev one;"
          "ip addr add 10.2.0.1/8 dev two; ip addr add 10.2.0.2/8 dev two; ip addr add 10.3.0.1/16 dev two;"
          "ip addr add 10.4.0.1/24 dev down");
    const bool hasTunnel = std::system("ip tuntap add name tunnel mode tun 2>/dev/null") == 0;

    auto adapters = ReadByName();

    EXPECT_EQ(hasTunnel ? 5u : 4u, adapters.size());
    EXPECT_EQ("||", Texts(adapters["none"]));
    EXPECT_EQ("10.1.0.1|255.255.255.0|", Texts(adapters["one"]));
    EXPECT_EQ("10.2.0.1|255.0.0.0|", Texts(adapters["two"]));
    EXPECT_EQ("||", Texts(adapters["down"]));
    EXPECT_EQ(6u, adapters["down"].macLength);
    EXPECT_EQ(0, std::memcmp("\x02\0\0\0\0\x0a\0\0", adapters["down"].macBytes, sizeof(adapters["down"].macBytes)));
    EXPECT_EQ(if_nametoindex("down"), adapters["down"].index);
    EXPECT_EQ(0u, adapters["tunnel"].macLength);
}

TEST_F(AdaptersTests, WhatAnAdapterIsStackedOnIsTheNextListedOneAndPortsAreLeftOut)
{
    Shell("ip link add lan type veth peer name end; ip link add wide type bridge");
    if (std::system("ip link add link lan name upper type macvlan mode private 2>/dev/null") != 0)
    {
        GTEST_SKIP() << "the kernel has no macvlans, which stand on another adapter as VLANs do";
    }
    Shell("ip link add link lan name port type macvlan mode private; ip link set port master wide");
    const Descriptor here(open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC));
    const std::string path = "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(here.Number());
    std::optional<PrivateNetwork> container(std::in_place);
    const Descriptor there(open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC));
    Shell("ip link add inside type veth peer name abroad netns " + path); // its number there is that of an adapter here
    container.reset();

    const auto adapters = ReadByName();

    EXPECT_EQ(0u, adapters.count("port"));
    using Row = std::pair<const char*, const char*>;
    for (const auto& [upper, lower] :
         {Row{"lan", ""}, Row{"end", ""}, Row{"abroad", ""}, Row{"upper", "lan"}, Row{"wide", "lan"}})
    {
        const std::vector<std::uint32_t> lowers(*lower == '\0' ? 0 : 1, if_nametoindex(lower));
        EXPECT_EQ(lowers, adapters.at(upper).lowerIndexes) << upper;
    }
}

TEST_F(AdaptersTests, TheGatewayIsThatOfTheBestUnicastDefaultRouteInTheMainTable)
{
    Shell(
        "for n in 1 2 3 4; do ip link add a$n type veth peer name b$n; ip link set a$n up; ip link set b$n up;"
        "  ip addr add 10.$n.0.1/24 dev a$n; done;"
        "ip route add default via 10.1.0.200 dev a1 metric 200; ip route add default via 10.1.0.100 dev a1 metric 100;"
        "ip route add default via 10.1.0.50 dev a1 table 50; ip route add 0.0.0.0/1 via 10.1.0.40 dev a1 metric 1;"
        "ip route add blackhole default metric 5;"
        "ip route add default metric 300 nexthop via 10.2.0.254 dev a2 nexthop via 10.3.0.254 dev a3;"
        "ip route add default dev a4 metric 10;"
        "ip link add a5 type veth peer name b5; ip link set a5 up; ip link set b5 up; ip addr add 10.5.0.1/24 dev a5;"
        "ip route append default via 10.5.0.254 dev a5 metric 100");

    std::string gateways;
    for (const auto& [name, adapter] : ReadByName())
    {
        gateways += adapter.gatewayText[0] == '\0' ? "" : name + " " + adapter.gatewayText + ",";
    }
    EXPECT_EQ("a1 10.1.0.100,a2 10.2.0.254,a3 10.3.0.254,a5 10.5.0.254,", gateways) << "a5 has the metric of a1";
}
