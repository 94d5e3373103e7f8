#include <Tests/Support/CoreTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/LogStream/LogStream.h>
#include <Core/System/IO/Directory.h>

#include <regex>

#include <sched.h>
#include <sys/mount.h>

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

    TemporaryFolder folder;
};

/// Rows until one fails.
int RowsUntilFailure(LogStream& log)
{
    int rows = 0;
    const auto write = [&]
    {
        for (; rows < 10000; ++rows)
        {
            log.Write(channel, "row");
        }
    };
    EXPECT_THROW(write(), IO::IOException);
    return rows;
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
               std::filesystem::remove(folder.Path("ballast").Utf8());
               const int after = RowsUntilFailure(log); // nothing has to be opened again
               EXPECT_TRUE(before > 100 && after > 100) << before << " " << after;
               const std::string text = folder.Read("c.log");
               const std::regex row(R"(\|row\|\r\n)");
               EXPECT_EQ(before + after, std::distance(std::sregex_iterator(text.begin(), text.end(), row), {}));
           });
}

TEST_F(LogStreamLinuxTests, AReadOnlyDiskIsNamed)
{
    OnDisk(MS_RDONLY, "",
           [this]
           {
               const String path = folder.Path("c.log");
               const std::string message = "I/O error occured. " + path.Utf8() + ": Read-only file system";
               const auto namesIt = testing::ThrowsMessage<IO::IOException>(testing::HasSubstr(message));
               EXPECT_THAT([&path] { LogStream log(path); }, namesIt);
               EXPECT_THAT([&path] { IO::Directory::CreateDirectory(path); }, namesIt);
           });
}
