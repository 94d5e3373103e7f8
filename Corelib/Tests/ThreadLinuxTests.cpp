#include <Tests/Support/CoreTest.h>

#include <Core/System/Threading/Thread.h>

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace Tesmo::System;
using namespace Tesmo::System::Threading;

namespace
{
void Nothing() {}

long OpenDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

long MappedPages()
{
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages;
}

std::string shownName;

void ReadShownName()
{
    std::getline(std::ifstream("/proc/thread-self/comm"), shownName);
}
} // namespace

TEST(ThreadLinuxTests, ControlByForceIsNotSupported)
{
    Thread thread{ThreadStart(&Nothing)};
    EXPECT_THROW(thread.Abort(), NotSupportedException);
    EXPECT_THROW(thread.Interrupt(), NotSupportedException);
    EXPECT_THROW(thread.Suspend(), NotSupportedException);
    EXPECT_THROW(thread.Resume(), NotSupportedException);
}

TEST(ThreadLinuxTests, SystemToolsSeeTheNameCutTo15Bytes)
{
    Thread thread{ThreadStart(&ReadShownName)};
    thread.Name("MessageParser of a client");
    thread.Start();
    thread.Join();
    EXPECT_EQ("MessageParser o", shownName);
}

TEST(ThreadLinuxTests, ThousandsOfThreadsLeaveNothingBehind)
{
    const auto run = [](int count)
    {
        for (int index = 0; index < count; ++index)
        {
            Thread thread{ThreadStart(&Nothing)};
            thread.Start();
            thread.Join();
        }
    };
    run(100);
    const long descriptors = OpenDescriptors();
    const long pages = MappedPages();

    run(3000);

    EXPECT_EQ(descriptors, OpenDescriptors());
    EXPECT_LT(MappedPages() - pages, 16 * 1024); // 64 MB: eight default stacks, where a leak would keep 3000
}
