#include "LanTest.h"

#include <Tests/Support/ManagedHost.h>
#include <fstream>

namespace Lan
{
/// Requests that change the client's host.
class ChangeTests : public LanTest, public testing::WithParamInterface<Manager>
{
protected:
    void AskForAddress(const Adapter& wanted, const std::string& present = "10.77.0.2") const
    {
        station->Say(Request("ChangeYourIPConfig", "False", R"(,"NewNICConfigs":[)" + wanted.Json() + "]"), present);
    }

    void AskForName(const std::string& name) const
    {
        station->Say(Request("ChangeYourHostName", "False", R"(,"NewHostName":")" + name + "\""), "10.77.0.2");
    }

    void ExpectRefusal()
    {
        ExpectHeard(Announcement("SignatureBroadcast", "False", {lan0}, &lan0), "10.77.0.1");
    }

    /// Whether the client has started a program since its own start: page faults of children that have ended.
    bool HasStartedProgram() const
    {
        std::ifstream stat("/proc/" + std::to_string(client->Id()) + "/stat");
        std::string field;
        for (int number = 1; number <= 11; ++number)
        {
            stat >> field;
        }
        return field != "0"; // proc(5): (11) cminflt
    }
};

TEST_P(ChangeTests, AnAddressThatADatagramBroughtIsSetAndAnnounced)
{
    Shell("ip addr flush dev lan0");
    ManagedHost managed(GetParam());
    if (!managed.IsInstalled())
    {
        GTEST_SKIP() << "the manager is not installed";
    }
    managed.Configure("lan0", "10.77.0.2/24 10.77.0.3/24", "");
    managed.Start();
    if (GetParam() == Manager::None) // then nobody needs the library for the bus either
    {
        Shell("mount --bind /dev/null /usr/lib/*-linux-gnu/libsystemd.so.0");
    }
    StartAndHearHello();
    Adapter moved = lan0;
    moved.address = "10.77.0.9";
    const std::pair<const char*, const char*> steps[] = {{"10.77.0.2", "0.0.0.0"}, {"10.77.0.9", "10.77.0.1"}};
    for (const auto& [present, gateway] : steps) // the second one changes no address: the kernel may tell of nothing
    {
        SCOPED_TRACE(gateway);
        moved.gateway = gateway;
        AskForAddress(moved, present);
        moved.gateway = moved.gateway == "0.0.0.0" ? "" : gateway;
        const std::string wanted = Announcement("SignatureBroadcast", "True", {moved}, &moved);
        const std::optional<Heard> heard = station->HearWith(wanted, 10000); // others may show it on its way
        ASSERT_TRUE(heard) << client->Log();
        EXPECT_EQ("10.77.0.9:12000", heard->sender);
    }
    EXPECT_EQ(GetParam() == Manager::None ? 2 : 0, client->Logged("IP config of lan0 : ")) << client->Log();
    ExpectCleanStop();
}

INSTANTIATE_TEST_SUITE_P(Real, ChangeTests,
                         testing::Values(Manager::None, Manager::NetworkManager, Manager::Networkd, Manager::Ifupdown));

using HostChangeTests = ChangeTests;

TEST_F(HostChangeTests, WhatIsRefusedOrForeignStartsNothing)
{
    StartAndHearHello();
    AskForAddress({"lan0", "02:00:00:00:00:99", "10.77.0.9"});
    for (const char* const gateway : {"255.255.255.255", "10.78.0.1"})
    {
        AskForAddress({"lan0", lan0.mac, "10.77.0.9", lan0.mask, gateway});
        ExpectRefusal();
    }
    for (const char* const name : {"", "$(id)", ";reboot", "\\n"})
    {
        SCOPED_TRACE(name);
        AskForName(name);
        ExpectRefusal();
    }
    EXPECT_TRUE(client->WaitForLog("Changing HostName", 4)) << client->Log();
    EXPECT_EQ(2, client->Logged("W32Gateway::SetIPAddresses failed ! Args : lan0/10.77.0.9/255.255.255.0/"));
    EXPECT_EQ(4, client->Logged("W32Gateway::SetHostName failed ! Args : "));
    EXPECT_FALSE(HasStartedProgram());
    ExpectCleanStop();
}

TEST_F(HostChangeTests, AHostThatTookANewNameAnswersWhenItHasRestarted)
{
    // The link that stands there leads to systemctl, which lies outside of the test's own folders.
    Shell("rm -f /usr/sbin/shutdown; printf '#!/bin/sh\\necho \"$@\" >>/run/shutdown.log\\n' >/usr/sbin/shutdown;"
          "chmod +x /usr/sbin/shutdown");
    StartAndHearHello();
    for (const char* const name : {"STUDIO4", "studio4"}) // it has the first one already
    {
        AskForName(name);
        EXPECT_FALSE(station->Hear(300)) << name;
    }
    EXPECT_EQ(2, client->Logged("Changing HostName")) << client->Log();
    if (!IsWin32())
    {
        EXPECT_EQ("studio4\n", ReadText("/etc/hostname"));
        EXPECT_TRUE(ReadText("/run/shutdown.log").starts_with("-r +1 A remote Zelkor "))
            << ReadText("/run/shutdown.log");
    }
    ExpectCleanStop();
}
} // namespace Lan
