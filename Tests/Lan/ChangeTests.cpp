#include "LanTest.h"

#include <Tests/Support/ManagedHost.h>
#include <fstream>

namespace Lan
{
/// Requests that change the client's host.
class ChangeTests : public LanTest
{
protected:
    static std::string ChangeRequest(const Adapter& wanted)
    {
        return Request("ChangeYourIPConfig", "False", R"(,"NewNICConfigs":[)" + wanted.Json() + "]");
    }

    static std::string NameRequest(const std::string& name)
    {
        return Request("ChangeYourHostName", "False", R"(,"NewHostName":")" + name + "\"");
    }

    /// What the kernel tells of lan0's addresses, and of the routes.
    std::string Addresses() const
    {
        host->Run({"sh", "-c", "(ip -4 -o addr show dev lan0; ip route) >/run/addresses"});
        return ReadText("/run/addresses");
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

    /// A program in the place of shutdown that writes its arguments down. The link that stands there leads to systemctl,
    /// which lies outside of the test's own folders.
    static void PutShutdownProgram()
    {
        Shell("rm -f /usr/sbin/shutdown");
        std::ofstream("/usr/sbin/shutdown") << "#!/bin/sh\necho \"$@\" >>/run/shutdown.log\n";
        Shell("chmod +x /usr/sbin/shutdown");
    }
};

TEST_F(ChangeTests, AnAdapterWithoutManagerGetsItsAddressUntilTheNextRestart)
{
    host->Ip("addr add 10.77.0.3/24 dev lan0");
    StartAndHearHello();
    Adapter moved = lan0;
    moved.address = "10.77.0.9";
    moved.gateway = "10.77.0.1";

    station->Say(ChangeRequest(moved), "10.77.0.2");

    const std::optional<Heard> heard = station->HearWith(R"("IPAddress":"10.77.0.9")");
    ASSERT_TRUE(heard) << client->Log();
    EXPECT_EQ(Announcement("SignatureBroadcast", "True", {moved}, &moved), heard->text);
    EXPECT_EQ("10.77.0.9:12000", heard->sender);
    EXPECT_EQ(1, client->Logged("Updating IP config of lan0 (02:00:00:00:00:01). New IP config : "
                                "10.77.0.9/255.255.255.0/10.77.0.1"));
    EXPECT_TRUE(client->WaitForLog("IP config of lan0 : ")) << "it does not outlast a restart of the host";
    EXPECT_EQ(std::string::npos, Addresses().find("10.77.0.3")) << "the former addresses are replaced";
    ExpectCleanStop();
}

class ManagedChangeTests : public ChangeTests, public testing::WithParamInterface<Manager>
{
};

TEST_P(ManagedChangeTests, TheManagerKeepsTheAddressThatADatagramBrought)
{
    host->Ip("addr flush dev lan0");
    ManagedHost managed(GetParam());
    if (!managed.IsInstalled())
    {
        GTEST_SKIP() << "the manager is not installed";
    }
    managed.Configure("lan0", "10.77.0.2/24", "");
    managed.Start();
    StartAndHearHello();
    Adapter moved = lan0;
    moved.address = "10.77.0.9";
    const std::pair<const char*, const char*> steps[] = {{"10.77.0.2", "0.0.0.0"}, {"10.77.0.9", "10.77.0.1"}};
    for (const auto& [present, gateway] : steps) // the second one changes no address: the kernel may tell of nothing
    {
        SCOPED_TRACE(gateway);
        moved.gateway = gateway;
        station->Say(ChangeRequest(moved), present);
        moved.gateway = moved.gateway == "0.0.0.0" ? "" : gateway;
        const std::string wanted = Announcement("SignatureBroadcast", "True", {moved}, &moved);
        const std::optional<Heard> heard = station->HearWith(wanted, 10000); // others may show it on its way
        ASSERT_TRUE(heard) << client->Log();
        EXPECT_EQ("10.77.0.9:12000", heard->sender);
    }
    EXPECT_EQ(0, client->Logged("IP config of lan0 : ")) << client->Log();
    ExpectCleanStop();

    managed.Stop();
    managed.Start();
    EXPECT_NE(std::string::npos, Addresses().find("inet 10.77.0.9/24")) << Addresses();
    EXPECT_NE(std::string::npos, Addresses().find("default via 10.77.0.1")) << Addresses();
    EXPECT_EQ(std::string::npos, Addresses().find("inet 10.77.0.2/")) << Addresses();
}

INSTANTIATE_TEST_SUITE_P(Real, ManagedChangeTests,
                         testing::Values(Manager::NetworkManager, Manager::Networkd, Manager::Ifupdown));

TEST_F(ChangeTests, ARefusedAddressIsAnsweredByTheSignatureAsItIs)
{
    StartAndHearHello();
    const std::string before = Addresses();
    for (const char* const gateway : {"255.255.255.255", "10.78.0.1"})
    {
        SCOPED_TRACE(gateway);
        Adapter wanted = lan0;
        wanted.address = "10.77.0.9";
        wanted.gateway = gateway;

        station->Say(ChangeRequest(wanted), "10.77.0.2");

        const std::optional<Heard> heard = station->Hear();
        ASSERT_TRUE(heard) << client->Log();
        EXPECT_EQ(Announcement("SignatureBroadcast", "False", {lan0}, &lan0), heard->text);
        EXPECT_EQ(1, client->Logged("W32Gateway::SetIPAddresses failed ! Args : lan0/10.77.0.9/255.255.255.0/" +
                                    std::string(gateway)));
    }
    EXPECT_EQ(before, Addresses());
    ExpectCleanStop();
}

TEST_F(ChangeTests, ForeignAddressesAndHostileNamesStartNothingAndChangeNothing)
{
    StartAndHearHello();
    const std::string before = Addresses();
    const std::string hostName = ReadText("/etc/hostname");
    Adapter foreign = lan0;
    foreign.address = "10.77.0.9";
    for (int number = 0; number < 2000; ++number)
    {
        char mac[18];
        std::snprintf(mac, sizeof(mac), "02:00:00:00:%02X:%02X", 1 + number / 256, number % 256);
        foreign.mac = mac;
        station->Say(ChangeRequest(foreign), "10.77.0.2");
        if (number % 50 == 49) // the client's socket holds some 150 datagrams
        {
            station->Say(Request("AllSendYourSignature", "False"), "10.77.0.2");
            ASSERT_TRUE(station->Hear()) << client->Log();
        }
    }
    const std::vector<std::string> parts = {"",      " ",    "a b",     "\\\"",    "'",   "/",       "..",
                                            "$(id)", "`id`", ";reboot", "\\u0001", "\\n", "\\u00e9", "_",
                                            "-",     ".",    "a.",      "|",       "&",   "*"};
    for (int number = 0; number < 200; ++number)
    {
        // From each part its pure form and nine others; an empty one grows too long.
        const std::string& part = parts[static_cast<std::size_t>(number) % parts.size()];
        const int form = number / static_cast<int>(parts.size());
        const std::string name = form == 0      ? part
                                 : part.empty() ? std::string(static_cast<std::size_t>(64 + form * 24), 'a')
                                                : part + "node" + std::to_string(form) + part;
        SCOPED_TRACE(name);
        station->Say(NameRequest(name), "10.77.0.2");
        const std::optional<Heard> heard = station->Hear();
        ASSERT_TRUE(heard) << client->Log();
        EXPECT_EQ(Announcement("SignatureBroadcast", "False", {lan0}, &lan0), heard->text);
    }
    EXPECT_EQ(200, client->Logged("W32Gateway::SetHostName failed ! Args : "));
    EXPECT_FALSE(HasStartedProgram());
    EXPECT_EQ(before, Addresses());
    EXPECT_EQ(hostName, ReadText("/etc/hostname"));
    ExpectCleanStop();
}

TEST_F(ChangeTests, ANewNameRestartsTheHostAndTheSameOneDoesNothing)
{
    PutShutdownProgram();
    StartAndHearHello();

    station->Say(NameRequest("STUDIO4"), "10.77.0.2");
    EXPECT_TRUE(client->WaitForLog("Changing HostName")) << client->Log();
    EXPECT_FALSE(station->Hear(300)) << "a host that needs a restart answers when it has restarted";
    EXPECT_FALSE(HasStartedProgram());

    station->Say(NameRequest("studio4"), "10.77.0.2");
    EXPECT_TRUE(client->WaitForLog("Changing HostName", 2)) << client->Log();
    EXPECT_FALSE(station->Hear(300));
    EXPECT_EQ("studio4\n", ReadText("/etc/hostname"));
    EXPECT_TRUE(ReadText("/run/shutdown.log").starts_with("-r +1 A remote Zelkor ")) << ReadText("/run/shutdown.log");
    ExpectCleanStop();
}
} // namespace Lan
