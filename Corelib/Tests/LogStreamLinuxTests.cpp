#include <Tests/Support/CoreTest.h>
#include <Tests/Support/IsolatedTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/LogStream/LogStream.h>
#include <Core/System/IO/Directory.h>

#include <regex>

using namespace Tesmo::System::LogStreams;

namespace
{
const LogStreamChannel channel("c");

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

/// A folder on a disk of its own.
class LogStreamLinuxTests : public IsolatedTest<PrivateHost>
{
protected:
    ~LogStreamLinuxTests() override
    {
        Shell("umount -l " + folder.Path().Utf8());
    }

    void PutDisk(const std::string& options) const
    {
        Shell("mount -t tmpfs -o " + options + " disk " + folder.Path().Utf8());
    }

    const TemporaryFolder folder;
};

TEST_F(LogStreamLinuxTests, AFullDiskReachesTheCodeThatLogsAndRowsGoOnWhenThereIsRoom)
{
    PutDisk("size=64k");
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
}

TEST_F(LogStreamLinuxTests, AReadOnlyDiskIsNamed)
{
    PutDisk("ro");
    const String path = folder.Path("c.log");
    const std::string message = "I/O error occured. " + path.Utf8() + ": Read-only file system";
    for (const auto& failure :
         {FailureOf([&] { LogStream log(path); }), FailureOf([&] { IO::Directory::CreateDirectory(path); })})
    {
        EXPECT_THAT(failure.Message().Utf8(), testing::HasSubstr(message));
    }
}
