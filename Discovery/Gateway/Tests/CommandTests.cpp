#include <Discovery/Gateway/Platform/Linux/Command.h>
#include <csignal>
#include <gtest/gtest.h>
#include <regex>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace std::chrono_literals;
using namespace Zelkor::Discovery::Client::Platform;

namespace
{

constexpr auto Limit = 10s;

CommandResult RunWithin(const std::vector<std::string>& arguments, std::chrono::milliseconds limit = Limit)
{
    return RunCommand(arguments, std::chrono::steady_clock::now() + limit);
}

} // namespace

TEST(CommandTests, ArgumentsArriveAsTheyAreAndTheExitCodeAndTheOutputComeBack)
{
    const CommandResult failed = RunWithin({"sh", "-c", "echo out; echo err >&2; cat; exit 7"});
    EXPECT_EQ(7, failed.code);
    EXPECT_EQ("out\nerr\n", failed.output);
    EXPECT_EQ(128 + SIGTERM, RunWithin({"sh", "-c", "kill $$"}).code);
    EXPECT_EQ(-1, RunWithin({"no-such-program"}).code);
    EXPECT_EQ("$(id)|a b|;\"*|-x|", RunWithin({"printf", "%s|", "$(id)", "a b", ";\"*", "-x"}).output);
}

TEST(CommandTests, TheProgramStartsWithAKnownEnvironmentAndSignalsAsAtALogin)
{
    const std::string path = getenv("PATH");
    setenv("PATH", "/nowhere", 1);
    setenv("SECRET", "x", 1);
    sigset_t all;
    sigset_t old;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &old);
    const int inherited = dup(STDERR_FILENO);
    const auto oldHandler = std::signal(SIGPIPE, SIG_IGN);

    const CommandResult environment = RunWithin({"env"});
    setenv("PATH", path.c_str(), 1);
    const CommandResult signals = RunWithin({"sed", "-nE", "s/^Sig(Blk|Ign):\\t*//p", "/proc/self/status"});
    const CommandResult files = RunWithin({"sh", "-c", "ls /proc/self/fd | wc -l"});

    close(inherited);
    std::signal(SIGPIPE, oldHandler);
    pthread_sigmask(SIG_SETMASK, &old, nullptr);
    EXPECT_EQ("PATH=/usr/sbin:/usr/bin:/sbin:/bin\nLC_ALL=C\n", environment.output);
    EXPECT_TRUE(std::regex_match(signals.output, std::regex("0+\n.{8}[08]0{7}\n"))) // from 32 on some are the library's
        << signals.output;
    EXPECT_EQ("4\n", files.output) << "the three standard ones and that of ls itself";
}

TEST(CommandTests, AProgramThatOutlastsTheDeadlineIsKilledWithItsGroup)
{
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_EQ(0, prctl(PR_SET_CHILD_SUBREAPER, 1)); // what the program leaves behind becomes a child of this process

    const CommandResult result = RunWithin({"sh", "-c", "trap '' TERM; echo $$; sleep 30 & sleep 30"}, 200ms);

    EXPECT_EQ(-1, result.code);
    const pid_t group = std::stoi(result.output);
    int status = 0;
    while (waitpid(-group, &status, 0) > 0)
    {
        EXPECT_TRUE(WIFSIGNALED(status));
    }
    EXPECT_EQ(ECHILD, errno);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, Limit);
    prctl(PR_SET_CHILD_SUBREAPER, 0);
    EXPECT_EQ(-1, RunWithin({"true"}, 0ms).code);
}

TEST(CommandTests, OutputIsBoundedAndADaemonThatWritesOnHoldsNothing)
{
    EXPECT_EQ(MaximumOutput, RunWithin({"head", "-c", "1000000", "/dev/zero"}).output.size());

    const auto begin = std::chrono::steady_clock::now();
    const CommandResult result = RunWithin({"sh", "-c", "setsid yes & echo started"});
    EXPECT_EQ(0, result.code);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, Limit);
}
