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
};

TEST_F(RoadTests, NoRequestIsLostWhileAnotherIsAnswered)
{
    Connect(lan1, *office, "wall1");
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
    Connect(lan1, branch, "wall0");
    Shell("ip link add docker0 type bridge; ip addr add 172.17.0.1/16 dev docker0; ip link set docker0 up");
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
    // The bridge and the other LAN, for each answer to one requester. Wine lets it leave by them, and be lost.
    EXPECT_TRUE(IsWin32() || client->WaitForLog("Message not sent : network unreachable.", rounds * 4))
        << client->Log();
    ExpectCleanStop();
    ExpectFrom(elsewhere, lan1);
    EXPECT_FALSE(station->Hear(100) || elsewhere.Hear(0));
}

} // namespace Lan
