#include "LanTest.h"

namespace Lan
{
/// The roads that messages take, and what stands in their way.
class RoadTests : public LanTest
{
protected:
    static void ExpectFrom(const Station& listener, const Adapter& source)
    {
        const std::optional<Heard> heard = listener.Hear();
        ASSERT_TRUE(heard) << source.name;
        EXPECT_EQ(source.address + ":12000", heard->sender);
    }

    const Adapter lan1{"lan1", "02:00:00:00:00:02", "10.88.0.2"};
};

TEST_F(RoadTests, NoRequestIsLostWhileAnotherIsAnswered)
{
    Connect(*host, lan1.name, lan1.mac, *office, "wall1");
    host->Ip("addr add 10.88.0.2/24 dev lan1");
    office->Ip("addr add 10.88.0.1/24 dev wall1");
    StartAndHearHello();
    ExpectFrom(*station, lan1);

    const std::string request = Request("AllSendYourSignature", "True");
    station->Say(request, lan0.address);
    for (int round = 0; round < 40 && !HasFailure(); ++round)
    {
        for (const Adapter& source : {lan0, lan1})
        {
            ExpectFrom(*station, source);
            if (source.name == (round % 2 == 0 ? lan0 : lan1).name)
            {
                station->Say(request, source.address); // what sent the answer is just being closed
            }
        }
    }
}

TEST_F(RoadTests, AMessageLeavesByItsOwnAdapterOrNotAtAll)
{
    NetworkNamespace branch;
    Connect(*host, lan1.name, lan1.mac, branch, "wall0");
    host->Ip("addr add 10.88.0.2/24 dev lan1");
    branch.Ip("addr add 10.88.0.1/24 dev wall0");
    host->Ip("link add docker0 type bridge");
    host->Ip("addr add 172.17.0.1/16 dev docker0");
    host->Ip("link set docker0 up");
    const Station elsewhere(branch);
    StartAndHearHello();
    ExpectFrom(elsewhere, lan1);

    constexpr int rounds = 5;
    for (int round = 0; round < rounds && !HasFailure(); ++round)
    {
        station->Say(Request("SendYourSignature", "False"), lan0.address);
        ExpectFrom(*station, lan0);
        elsewhere.Say(Request("SendYourSignature", "False"), lan1.address);
        ExpectFrom(elsewhere, lan1);
        station->Say(Request("AllSendYourSignature", "True"), lan0.address);
        ExpectFrom(*station, lan0);
        ExpectFrom(elsewhere, lan1);
    }
    // the bridge and the other LAN, for each answer to one requester
    EXPECT_TRUE(client->WaitForLog("Message not sent : network unreachable.", rounds * 4)) << client->Log();
    ExpectCleanStop();
    ExpectFrom(elsewhere, lan1);
    EXPECT_FALSE(station->Hear(100));
    EXPECT_FALSE(elsewhere.Hear(0));
}

TEST_F(RoadTests, NeitherARouteThatRefusesNorAFirewallIsADeadSocket)
{
    host->Ip("addr del 10.77.0.2/24 dev lan0");
    host->Ip("addr add 10.77.0.2/24 dev lan0 label lan0office"); // no name of an interface
    host->Ip("route add unreachable default");
    StartAndHearHello();
    for (const char* type : {"prohibit", "blackhole"})
    {
        SCOPED_TRACE(type);
        host->Ip(std::string("route replace ") + type + " default");
        station->Say(Request("AllSendYourSignature", "True"), lan0.address);
        ExpectFrom(*station, lan0);
    }

    host->Run({"nft", "add table ip wall; add chain ip wall out { type filter hook output priority 0; };"
                      "add rule ip wall out udp dport 12001 drop"});
    station->Say(Request("AllSendYourSignature", "True"), lan0.address);
    station->Say(Request("AllSendYourSignature", "False"), lan0.address);
    EXPECT_TRUE(client->WaitForLog("Message not sent : network unreachable.", 2)) << client->Log();
    host->Run({"nft", "delete table ip wall"});
    station->Say(Request("AllSendYourSignature", "True"), lan0.address);
    ExpectFrom(*station, lan0);
    EXPECT_EQ(0, client->Logged("Asynchronous restart triggered"));
    ExpectCleanStop();
}
} // namespace Lan
