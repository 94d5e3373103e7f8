#include "LanTest.h"

#include <csignal>

namespace Lan
{
class AnnouncementTests : public LanTest
{
};

TEST_F(AnnouncementTests, AHostAnnouncesItselfByteForByteWithAndWithoutADefaultRoute)
{
    Adapter adapter = lan0;
    for (const char* const gateway : {"", "10.77.0.1"})
    {
        SCOPED_TRACE(gateway);
        adapter.gateway = gateway;
        StartClient();
        ExpectHeard(Announcement("Hello", "True", {adapter}, &adapter));
        station->Say(Request("AllSendYourSignature", "True"), "255.255.255.255", "wall0");
        ExpectHeard(Announcement("SignatureBroadcast", "True", {adapter}, &adapter));
        station->Say(Request("SendYourSignature", "False"), "10.77.0.2");
        ExpectHeard(Announcement("SignatureBroadcast", "False", {adapter}, &adapter), "10.77.0.1");
        client->Signal(SIGTERM);
        ExpectHeard(Announcement("Bye", "True", {adapter}, &adapter));
        EXPECT_EQ(0, client->ExitCode(std::chrono::milliseconds(2000)));
        host->Ip("route replace default via 10.77.0.1");
    }
}

TEST_F(AnnouncementTests, TwoAdaptersGiveOneMessageEachFromTheirOwnAddress)
{
    Connect(*host, "lan1", "02:00:00:00:00:02", *office, "wall1");
    host->Ip("addr add 10.88.0.2/24 dev lan1");
    office->Ip("addr add 10.88.0.1/24 dev wall1");
    const Adapter lan1{"lan1", "02:00:00:00:00:02", "10.88.0.2"};
    const auto expectBoth = [&](const char* type)
    {
        for (const Adapter& source : {lan0, lan1})
        {
            ExpectHeard(Announcement(type, "True", {lan0, lan1}, &source), "255.255.255.255", source.address);
        }
    };
    StartClient();
    expectBoth("Hello");
    station->Say(Request("AllSendYourSignature", "True"), "255.255.255.255", "wall1");
    expectBoth("SignatureBroadcast");
    client->Signal(SIGTERM);
    expectBoth("Bye");
    EXPECT_EQ(0, client->ExitCode(std::chrono::milliseconds(2000)));
}

TEST_F(AnnouncementTests, AnAddressChangeIsAnnouncedOnce)
{
    StartAndHearHello();

    // In one go, as a manager does it: a pause of 100 ms between the two would make two changes of it.
    host->Run({"sh", "-c", "printf 'addr flush dev lan0\naddr add 10.77.0.9/24 dev lan0\n' | ip -batch -"});

    Adapter moved = lan0;
    moved.address = "10.77.0.9";
    ExpectHeard(Announcement("SignatureBroadcast", "True", {moved}, &moved), "255.255.255.255", moved.address);
    EXPECT_FALSE(station->Hear(500)) << "one burst of address messages is one change";
    ExpectCleanStop();
}

TEST_F(AnnouncementTests, AClientWithoutAdapterSpeaksWhenItGetsOneAndStopsWithoutAWordElse)
{
    host->Ip("link del lan0");
    StartClient();
    ASSERT_TRUE(client->WaitForLog("SendHelloMessage aborted")) << client->Log();
    ASSERT_TRUE(client->WaitForLog("---Waiting for IP changes..."));
    ExpectCleanStop(false);
    EXPECT_EQ(1, client->Logged("SendByeMessage aborted"));

    StartClient();
    ASSERT_TRUE(client->WaitForLog("---Waiting for IP changes...", 2)) << client->Log();
    Connect(*host, lan0.name, lan0.mac, *office, "wall0");
    office->Ip("addr add 10.77.0.1/24 dev wall0");
    host->Ip("addr add 10.77.0.2/24 dev lan0");
    ExpectHeard(Announcement("SignatureBroadcast", "True", {lan0}, &lan0));
    ExpectCleanStop();
}
} // namespace Lan
