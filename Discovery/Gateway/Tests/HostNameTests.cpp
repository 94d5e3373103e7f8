#include <Discovery/Gateway/Platform/HostName.h>
#include <Discovery/Gateway/Platform/Linux/HostNameRule.h>
#include <Discovery/Gateway/Platform/Linux/SystemBus.h>
#include <Tests/Support/IsolatedTest.h>
#include <poll.h>
#include <random>
#include <tuple>

using namespace Zelkor::Discovery::Client::Platform;
using namespace std::chrono_literals;

class HostNameTests : public IsolatedTest<PrivateHost>
{
protected:
    void SetUp() override
    {
        Shell("hostname old-node; echo old-node >/etc/hostname");
    }

    void StartHostNameService(const std::string& before = "")
    {
        host.StartBus();
        host.StartService("org.freedesktop.hostname1",
                          {"unshare", "--mount", "sh", "-c", before + "exec /usr/lib/systemd/systemd-hostnamed"});
    }

    static std::string Name()
    {
        char name[HostNameSize] = {};
        EXPECT_EQ(0, ReadHostName(name));
        return name;
    }
};

TEST_F(HostNameTests, TheHostsOwnServiceStoresTheNameForACallerWithoutCapabilities)
{
    StartHostNameService();
    WithoutCapabilities([] { EXPECT_EQ(0, WriteHostName("new-node.lan")); }); // it can't set the name by itself
    EXPECT_EQ("new-node.lan new-node.lan\n", Name() + " " + ReadText("/etc/hostname"));
}

TEST_F(HostNameTests, WhatTheServiceRefusesIsNotDoneInAnotherWay)
{
    StartHostNameService("mount -o remount,bind,ro /etc && ");
    EXPECT_NE(0, WriteHostName("new-node"));
    EXPECT_EQ("old-node old-node\n", Name() + " " + ReadText("/etc/hostname"));
}

TEST_F(HostNameTests, OurRuleIsTheRuleOfTheHostsOwnService)
{
    StartHostNameService();
    SystemBus bus(std::chrono::steady_clock::now() + 30s);
    std::mt19937 random(1);
    const std::string characters = "aZ5--.._ /\xC3";
    int accepted = 0;
    for (int round = 0; round < 1200; ++round)
    {
        std::string name(round % 100 == 0 ? 60 + random() % 10 : 1 + random() % 6, 'x');
        for (std::size_t i = 0; i < name.size() && round % 100 != 0; ++i)
        {
            name[i] = characters[random() % characters.size()];
        }
        BusMessage reply;
        const int error = bus.Call("org.freedesktop.hostname1", "/org/freedesktop/hostname1",
                                   "org.freedesktop.hostname1", "SetStaticHostname", reply, "sb", name.c_str(), 0);
        EXPECT_EQ(error == 0, IsHostName(name)) << name << ": " << bus.LastError();
        accepted += error == 0 ? 1 : 0;
    }
    EXPECT_GT(accepted, 60);
}

TEST_F(HostNameTests, WithoutTheServiceTheNameIsSetAndStoredWholeOrNotAtAll)
{
    int count = 0;
    // A command that changes the host, and whether a name can then be written.
    using Row = std::tuple<const char*, bool>;
    for (const auto& [before, works] : {Row{"", true}, Row{"rm /etc/hostname", true},
                                        Row{"cp /etc/hostname /run/h; mount --bind /run/h /etc/hostname", true},
                                        Row{"mount -o remount,ro /etc", true}, // all but the file that is mounted there
                                        Row{"prlimit --pid $PPID --fsize=6:", false}, // bytes of a file, one too few
                                        Row{"prlimit --pid $PPID --fsize=unlimited:; umount /etc/hostname", false},
                                        Row{"mount -t tmpfs -o nr_inodes=2 t /etc; echo name-3 >/etc/hostname", false}})
    {
        SCOPED_TRACE(before);
        const std::string name = "name-" + std::to_string(count++);
        Shell(before);
        const std::string oldName = Name();
        const std::string oldText = ReadText("/etc/hostname");

        EXPECT_EQ(works, WriteHostName(name) == 0);

        EXPECT_EQ(works ? name : oldName, Name());
        EXPECT_EQ(works ? name + "\n" : oldText, ReadText("/etc/hostname"));
        Shell("! ls -A /etc | grep -E '^.?hostname[.]'");
    }
}

TEST_F(HostNameTests, ANameThatNoHostMayBearReachesNothing)
{
    pollfd bus{host.StartSilentBus(), POLLIN, 0};

    for (const std::string& name : {std::string(), std::string("../x"), std::string("$(reboot)"), std::string("--help"),
                                    std::string("a\0b", 3), std::string(65, 'a'), std::string(60000, 'a')})
    {
        EXPECT_NE(0, WriteHostName(name)) << name;
    }

    EXPECT_EQ(0, poll(&bus, 1, 0)) << "somebody connected";
    EXPECT_EQ("old-node", Name());
}
