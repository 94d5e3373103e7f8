#include "TemporaryFolder.h"

#include <Core/LogStream/LogStream.h>
#include <Core/System/IO/IOException.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <thread>

#include <sched.h>
#include <sys/mount.h>

using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

namespace
{
/// A disk of 64 KiB on the folder, for the calling thread alone and as long as it lives.
bool MountSmallDisk(const TemporaryFolder& folder)
{
    return unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", folder.Path().Utf8().c_str(), "tmpfs", 0, "size=64k") == 0;
}

/// Rows until one fails.
int RowsUntilFailure(LogStream& log)
{
    const LogStreamChannel channel("c");
    for (int rows = 0; rows < 10000; ++rows)
    {
        try
        {
            log.Write(channel, "a row that takes its place on the disk");
        }
        catch (const IO::IOException&)
        {
            return rows;
        }
    }
    return -1;
}
} // namespace

TEST(LogStreamLinuxTests, AFullDiskReachesTheCodeThatLogsAndRowsGoOnWhenThereIsRoom)
{
    const TemporaryFolder folder;
    bool mounted = false;
    std::thread guest(
        [&]
        {
            mounted = MountSmallDisk(folder);
            if (!mounted)
            {
                return;
            }
            folder.Write("ballast", std::string(30000, 'x'));
            LogStream log(folder.Path("c.log"));
            EXPECT_GT(RowsUntilFailure(log), 100);
            EXPECT_EQ(0, RowsUntilFailure(log)); // every further one fails too
            std::filesystem::remove(folder.Path("ballast").Utf8());
            EXPECT_GT(RowsUntilFailure(log), 100); // nothing has to be opened again
        });
    guest.join();
    if (!mounted)
    {
        GTEST_SKIP() << "the system allows no mount namespace";
    }
}
