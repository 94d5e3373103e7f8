#include <Tests/Support/CoreTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/LogStream/LogStream.h>
#include <Core/System/IO/Directory.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <thread>

#include <sched.h>
#include <sys/mount.h>

using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

namespace
{
const LogStreamChannel channel("c");

/// A folder on a disk of its own of 64 KiB, which is there for the body of the test alone.
class LogStreamLinuxTests : public testing::Test
{
protected:
    void OnDisk(unsigned long flags, const std::string& options, const std::function<void()>& body)
    {
        bool mounted = false;
        std::thread guest(
            [&]
            {
                mounted = unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                          mount("tmpfs", folder.Path().Utf8().c_str(), "tmpfs", flags, options.c_str()) == 0;
                if (mounted)
                {
                    body();
                }
            });
        guest.join();
        if (!mounted)
        {
            GTEST_SKIP() << "the system allows no mount namespace";
        }
    }

    void MakeRoom() const
    {
        std::filesystem::remove(folder.Path("ballast").Utf8());
    }

    TemporaryFolder folder;
};

const std::string row = "|a row that takes its place on the disk|\r\n";

int RowsIn(const std::string& text)
{
    return (String(text).Length() - String(text).Replace(String(row), "").Length()) / static_cast<int>(row.size());
}

/// Rows until one fails.
int RowsUntilFailure(LogStream& log)
{
    int rows = 0;
    const auto write = [&]
    {
        for (; rows < 10000; ++rows)
        {
            log.Write(channel, "a row that takes its place on the disk");
        }
    };
    EXPECT_THROW(write(), IO::IOException);
    return rows;
}

/// A failure to write to a place on a disk that is read only.
auto IsReadOnlyAt(const String& place)
{
    const std::string message = "I/O error occured. " + place.Utf8() + ": Read-only file system";
    return testing::ThrowsMessage<IO::IOException>(testing::HasSubstr(message));
}
} // namespace

TEST_F(LogStreamLinuxTests, AFullDiskReachesTheCodeThatLogsAndRowsGoOnWhenThereIsRoom)
{
    OnDisk(0, "size=64k",
           [this]
           {
               folder.Write("ballast", std::string(30000, 'x'));
               LogStream log(folder.Path("c.log"));
               const int before = RowsUntilFailure(log);
               EXPECT_EQ(0, RowsUntilFailure(log)); // every further one fails too
               MakeRoom();
               const int after = RowsUntilFailure(log); // nothing has to be opened again
               EXPECT_GT(before, 100);
               EXPECT_GT(after, 100);
               EXPECT_EQ(before + after, RowsIn(folder.Read("c.log")));
           });
}

TEST_F(LogStreamLinuxTests, ASplitWithoutRoomForTheHeaderReachesTheCallerAndTheNewFileGoesOn)
{
    OnDisk(0, "size=64k",
           [this]
           {
               LogStream log(folder.Path("c.log")); // the rest of its page has room for some rows
               folder.Write("ballast", std::string(65536, 'x'));
               log.BackupCount(3);
               log.MaxFileSize(0);
               EXPECT_THROW(log.Write(channel, "splits"), ArgumentException);
               EXPECT_TRUE(folder.Read("c.bak").ends_with("|splits|\r\n"));
               EXPECT_THROW(log.Write(channel, "lost"), IO::IOException);
               MakeRoom();
               log.MaxFileSize(0x500000);
               log.Write(channel, "goes on");
               EXPECT_TRUE(folder.Read("c.log").ends_with("|goes on|\r\n"));
               log.MaxFileSize(0);
               log.Write(channel, "splits again");
               EXPECT_TRUE(folder.Read("c.bak1").ends_with("|splits|\r\n"));
               EXPECT_TRUE(folder.Read("c.bak").ends_with("|splits again|\r\n"));
               EXPECT_TRUE(folder.Read("c.log").starts_with("/---"));
           });
}

TEST_F(LogStreamLinuxTests, ASplitWithoutRoomForTheNewFileIsSilentAndEndsTheLog)
{
    OnDisk(0, "nr_inodes=3", // the folder, the log and the ballast
           [this]
           {
               LogStream log(folder.Path("c.log"));
               folder.Write("ballast", "x");
               log.BackupCount(1);
               log.MaxFileSize(0);
               EXPECT_NO_THROW(log.Write(channel, "splits"));
               EXPECT_TRUE(folder.Read("c.bak").ends_with("|splits|\r\n"));
               EXPECT_THROW(log.Write(channel, "next"), ObjectClosedException);
               MakeRoom();
               EXPECT_THROW(log.Write(channel, "next"), ObjectClosedException);
               LogStream(folder.Path("c.log")).Write(channel, "opened anew");
               EXPECT_TRUE(folder.Read("c.log").ends_with("|opened anew|\r\n"));
           });
}

TEST_F(LogStreamLinuxTests, AReadOnlyDiskIsNamed)
{
    OnDisk(MS_RDONLY, "",
           [this]
           {
               const String path = folder.Path("c.log");
               EXPECT_THAT([&path] { LogStream log(path); }, IsReadOnlyAt(path));
               EXPECT_THAT([&path] { IO::Directory::CreateDirectory(path); }, IsReadOnlyAt(path));
           });
}
