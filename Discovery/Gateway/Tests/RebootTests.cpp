#include <Discovery/Gateway/Platform/HostName.h>
#include <Discovery/Gateway/Platform/Reboot.h>
#include <Tests/Support/IsolatedTest.h>
#include <chrono>
#include <future>
#include <regex>

using namespace Zelkor::Discovery::Client::Platform;
using namespace std::chrono_literals;

const std::string Message =
    "A remote Zelkor administration application has just changed some settings which need a restart. The restart will "
    "be initiated in 30 seconds, please save and close your applications properly.";

class RebootTests : public IsolatedTest<PrivateHost>
{
protected:
    /// A program in the place of shutdown that writes its arguments down, each in a line, and then does as told.
    static void PutShutdownProgram(const std::string& commands)
    {
        Shell("rm -f /usr/sbin/shutdown; printf '%s\\n' '#!/bin/sh' 'printf \"%s\\n\" \"$@\" >/run/shutdown.log' '" +
              commands + "' >/usr/sbin/shutdown; chmod +x /usr/sbin/shutdown");
    }

    /// @param answer  Python code by which the manager takes the order for a restart
    void StartLoginManager(const std::string& answer = "")
    {
        const std::string add = "busctl call org.freedesktop.login1 /org/freedesktop/login1 org.freedesktop.DBus.Mock "
                                "AddMethod sssss org.freedesktop.login1.Manager ";
        host.StartBus();
        host.StartService("org.freedesktop.login1", {"/usr/bin/python3", "-m", "dbusmock", "--system", "--logfile",
                                                     "/run/login.log", "--template", "logind"});
        Shell(add + "SetWallMessage sb '' ''; " + add + "ScheduleShutdown st '' '" + answer + "'");
    }
};

TEST_F(RebootTests, TheLoginManagerIsToldTheMessageAndTheMoment)
{
    StartLoginManager();
    const auto inHalfAMinute = [] { return (std::chrono::system_clock::now().time_since_epoch() + 30s) / 1us; };
    const long long earliest = inHalfAMinute();

    WithoutCapabilities([] { EXPECT_EQ(0, RequestReboot(30)); });

    const std::string calls = ReadText("/run/login.log");
    const std::regex expected("[0-9.]+ SetWallMessage \"" + Message + // its full stops match any character
                              "\" True\n[0-9.]+ ScheduleShutdown \"reboot\" ([0-9]+)\n");
    std::smatch parts;
    ASSERT_TRUE(std::regex_search(calls, parts, expected)) << calls;
    EXPECT_LE(earliest, std::stoll(parts[1]));
    EXPECT_GE(inHalfAMinute(), std::stoll(parts[1]));
}

TEST_F(RebootTests, ARefusedRestartTakesTheMessageBackAndIsNotTriedOtherwise)
{
    PutShutdownProgram("");
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
    for (const auto& [seconds, code, minutes] :
         {std::tuple(60, "0", "+1"), std::tuple(61, "0", "+2"), std::tuple(30, "1", "+1")})
    {
        PutShutdownProgram(std::string("exit ") + code);
        EXPECT_EQ(std::stoi(code), RequestReboot(seconds));
        EXPECT_TRUE(ReadText("/run/shutdown.log").starts_with(std::string("-r\n") + minutes + "\nA remote Zelkor "));
    }
    EXPECT_EQ("-r\n+1\n" + Message + "\n", ReadText("/run/shutdown.log"));
    Shell("rm /usr/sbin/shutdown");
    EXPECT_NE(0, RequestReboot(30));
}

TEST_F(RebootTests, ABusThatNeverAnswersHoldsNeitherNameNorRestartUpForLong)
{
    host.StartSilentBus();
    Shell("mkfifo /run/ask /run/answer");
    // One that waits for the moment by itself, and says so.
    PutShutdownProgram("echo waiting; read question </run/ask; echo waiting; echo waiting; echo here >/run/answer");
    const auto begin = std::chrono::steady_clock::now();

    std::future<int> name = std::async(std::launch::async, [] { return WriteHostName("new-node"); });
    EXPECT_EQ(0, RequestReboot(30));
    EXPECT_EQ(0, name.get());

    EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
    EXPECT_EQ("new-node\n", ReadText("/etc/hostname"));
    // It goes on, though nobody reads what it writes.
    Shell("timeout 10 sh -c 'echo question >/run/ask; read answer </run/answer; [ $answer = here ]'");
}
