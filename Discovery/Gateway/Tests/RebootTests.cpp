#include <Discovery/Gateway/Platform/HostName.h>
#include <Discovery/Gateway/Platform/Reboot.h>
#include <Tests/Support/Commands.h>
#include <Tests/Support/IsolatedTest.h>
#include <Tests/Support/PrivateHost.h>
#include <chrono>
#include <future>
#include <regex>

using namespace Zelkor::Discovery::Platform;
using namespace std::chrono_literals;

namespace
{

const std::string Message =
    "A remote Zelkor administration application has just changed some settings which need a restart. The restart will "
    "be initiated in 30 seconds, please save and close your applications properly.";

class RebootTests : public IsolatedTest<PrivateHost>
{
protected:
    void SetUp() override
    {
        PutShutdownProgram("");
    }

    /// A program in the place of shutdown that writes its arguments down, each in a line, and then does as told.
    static void PutShutdownProgram(const std::string& commands)
    {
        Shell("rm -f /usr/sbin/shutdown; printf '%s\\n' '#!/bin/sh' 'printf \"%s\\n\" \"$@\" >/run/shutdown.log' '" +
              commands + "' >/usr/sbin/shutdown; chmod +x /usr/sbin/shutdown");
    }

    static void AddMethod(const std::string& name, const std::string& types, const std::string& code = "")
    {
        Shell("busctl call org.freedesktop.login1 /org/freedesktop/login1 org.freedesktop.DBus.Mock AddMethod sssss"
              " org.freedesktop.login1.Manager " +
              name + " " + types + " '' '" + code + "'");
    }

    /// @param answer  Python code by which the manager takes the order for a restart
    void StartLoginManager(const std::string& answer = "")
    {
        host.StartBus();
        host.StartService("org.freedesktop.login1", {"/usr/bin/python3", "-m", "dbusmock", "--system", "--logfile",
                                                     "/run/login.log", "--template", "logind"});
        AddMethod("SetWallMessage", "sb");
        AddMethod("ScheduleShutdown", "st", answer);
    }
};

long long MicrosecondsNow()
{
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

} // namespace

TEST_F(RebootTests, TheLoginManagerIsToldTheMessageAndTheMoment)
{
    StartLoginManager();
    const long long earliest = MicrosecondsNow() + 30'000'000;

    WithoutCapabilities([] { EXPECT_EQ(0, RequestReboot(30)); });

    const long long latest = MicrosecondsNow() + 30'000'000;
    const std::string calls = ReadText("/run/login.log");
    const std::regex expected("[0-9.]+ SetWallMessage \"" + std::regex_replace(Message, std::regex("\\."), "\\.") +
                              "\" True\n[0-9.]+ ScheduleShutdown \"reboot\" ([0-9]+)\n");
    std::smatch parts;
    ASSERT_TRUE(std::regex_search(calls, parts, expected)) << calls;
    EXPECT_LE(earliest, std::stoll(parts[1]));
    EXPECT_GE(latest, std::stoll(parts[1]));
}

TEST_F(RebootTests, ARefusedRestartTakesTheMessageBackAndIsNotTriedOtherwise)
{
    StartLoginManager("raise dbus.exceptions.DBusException(\"inhibited\")");

    EXPECT_NE(0, RequestReboot(30));

    const std::string calls = ReadText("/run/login.log");
    EXPECT_TRUE(std::regex_search(calls, std::regex("ScheduleShutdown .*\n[0-9.]+ SetWallMessage \"\" False\n$")))
        << calls;
    EXPECT_EQ("", ReadText("/run/shutdown.log"));
}

TEST_F(RebootTests, WithoutALoginManagerTheShutdownProgramIsAskedInWholeMinutes)
{
    host.StartBus(); // it can't start the manager
    for (const auto& [seconds, minutes] : {std::pair(30, "+1"), std::pair(60, "+1"), std::pair(61, "+2")})
    {
        EXPECT_EQ(0, RequestReboot(seconds));
        const std::string words = ReadText("/run/shutdown.log");
        EXPECT_TRUE(words.starts_with(std::string("-r\n") + minutes + "\nA remote Zelkor ")) << words;
    }
    PutShutdownProgram("exit 1");
    EXPECT_NE(0, RequestReboot(30));
    EXPECT_EQ("-r\n+1\n" + Message + "\n", ReadText("/run/shutdown.log"));
    Shell("rm /usr/sbin/shutdown");
    EXPECT_NE(0, RequestReboot(30));
}

TEST_F(RebootTests, ABusThatNeverAnswersHoldsNeitherNameNorRestartUpForLong)
{
    host.StartSilentBus();
    // One that waits for the moment by itself, and says so.
    PutShutdownProgram(
        "echo $$ >/run/shutdown.pid; for i in $(seq 600); do echo waiting; echo $i >>/run/beat; sleep .1; done");
    const auto begin = std::chrono::steady_clock::now();

    std::future<int> name = std::async(std::launch::async, [] { return WriteHostName("new-node"); });
    EXPECT_EQ(0, RequestReboot(30));
    EXPECT_EQ(0, name.get());

    EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
    EXPECT_EQ("new-node\n", ReadText("/etc/hostname"));
    Shell("last=$(wc -l </run/beat); n=0; until [ $(wc -l </run/beat) -gt $last ]; do n=$((n + 1)); [ $n -lt 50 ]; "
          "sleep .1;"
          "done; kill $(cat /run/shutdown.pid)"); // it goes on, though nobody reads what it writes
}
