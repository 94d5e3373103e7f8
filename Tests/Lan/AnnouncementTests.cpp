#include "LanTest.h"

namespace Lan
{
class AnnouncementTests : public LanTest
{
protected:
    /// The three announcements and an answer to one requester, byte for byte, of a host with this one adapter.
    void ExpectExactBytes(const Adapter& adapter)
    {
        StartClient();
        ExpectHeard(Announcement("Hello", "True", {adapter}, &adapter), "255.255.255.255");
        station->Say(Request("AllSendYourSignature", "True"), "255.255.255.255", "wall0");
        ExpectHeard(Announcement("SignatureBroadcast", "True", {adapter}, &adapter), "255.255.255.255");
        station->Say(Request("SendYourSignature", "False"), "10.77.0.2");
        ExpectHeard(Announcement("SignatureBroadcast", "False", {adapter}, &adapter), "10.77.0.1");
        client->Signal(SIGTERM);
        ExpectHeard(Announcement("Bye", "True", {adapter}, &adapter), "255.255.255.255");
        EXPECT_EQ(0, client->ExitCode(std::chrono::milliseconds(2000)));
    }

    void ExpectHeard(const std::string& text, const std::string& destination)
    {
        const std::optional<Heard> heard = station->Hear(10000);
        ASSERT_TRUE(heard) << client->Log();
        EXPECT_EQ(text, heard->text);
        EXPECT_EQ("10.77.0.2:12000", heard->sender);
        EXPECT_EQ(destination, heard->destination);
    }
};

TEST_F(AnnouncementTests, AHostWithoutADefaultRouteAnnouncesItselfByteForByte)
{
    ExpectExactBytes(lan0);
}

TEST_F(AnnouncementTests, AHostWithADefaultRouteAnnouncesItselfByteForByte)
{
    host->Ip("route add default via 10.77.0.1");
    Adapter adapter = lan0;
    adapter.gateway = "10.77.0.1";
    ExpectExactBytes(adapter);
}

TEST_F(AnnouncementTests, TwoAdaptersGiveOneMessageEachFromTheirOwnAddress)
{
    Connect(*host, "lan1", "02:00:00:00:00:02", *office, "wall1");
    host->Ip("addr add 10.88.0.2/24 dev lan1");
    office->Ip("addr add 10.88.0.1/24 dev wall1");
    const Adapter lan1{"lan1", "02:00:00:00:00:02", "10.88.0.2"};
    StartClient();

    for (const char* type : {"Hello", "SignatureBroadcast", "Bye"})
    {
        SCOPED_TRACE(type);
        for (const Adapter& source : {lan0, lan1})
        {
            const std::optional<Heard> heard = station->Hear(10000);
            ASSERT_TRUE(heard) << client->Log();
            EXPECT_EQ(Announcement(type, "True", {lan0, lan1}, &source), heard->text);
            EXPECT_EQ(source.address + ":12000", heard->sender);
        }
        if (std::string(type) == "Hello")
        {
            station->Say(Request("AllSendYourSignature", "True"), "255.255.255.255", "wall1");
        }
        else if (std::string(type) == "SignatureBroadcast")
        {
            client->Signal(SIGTERM);
        }
    }
    EXPECT_EQ(0, client->ExitCode(std::chrono::milliseconds(2000)));
}

TEST_F(AnnouncementTests, AnAddressChangeIsAnnouncedOnce)
{
    StartAndHearHello();

    // In one go, as a manager does it: a pause of 100 ms between the two would make two changes of it.
    host->Run({"sh", "-c", "printf 'addr flush dev lan0\naddr add 10.77.0.9/24 dev lan0\n' | ip -batch -"});

    Adapter moved = lan0;
    moved.address = "10.77.0.9";
    const std::optional<Heard> heard = station->HearWith(R"("SignatureBroadcast")");
    ASSERT_TRUE(heard) << client->Log();
    EXPECT_EQ(Announcement("SignatureBroadcast", "True", {moved}, &moved), heard->text);
    EXPECT_EQ("10.77.0.9:12000", heard->sender);
    EXPECT_FALSE(station->Hear(500)) << "one burst of address messages is one change";
    ExpectCleanStop();
}

TEST_F(AnnouncementTests, AClientThatStartsWithoutAdapterSpeaksWhenItGetsOne)
{
    host->Ip("link del lan0");
    StartClient();
    ASSERT_TRUE(client->WaitForLog("SendHelloMessage aborted")) << client->Log();
    ASSERT_TRUE(client->WaitForLog("---Waiting for IP changes..."));

    Connect(*host, lan0.name, lan0.mac, *office, "wall0");
    office->Ip("addr add 10.77.0.1/24 dev wall0");
    host->Ip("addr add 10.77.0.2/24 dev lan0");

    const std::optional<Heard> heard = station->Hear();
    ASSERT_TRUE(heard) << client->Log();
    EXPECT_EQ(Announcement("SignatureBroadcast", "True", {lan0}, &lan0), heard->text);
    ExpectCleanStop();
}

TEST_F(AnnouncementTests, AClientWithoutAdapterStopsCleanlyWithoutAWord)
{
    host->Ip("link del lan0");
    StartClient();
    ASSERT_TRUE(client->WaitForLog("---Waiting for IP changes...")) << client->Log();
    ExpectCleanStop(false);
    EXPECT_TRUE(client->WaitForLog("SendByeMessage aborted"));
}
} // namespace Lan
