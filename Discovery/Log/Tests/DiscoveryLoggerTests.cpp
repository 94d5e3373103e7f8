#include <Core/System/InvalidOperationException.h>
#include <Discovery/Log/DiscoveryLogger.h>
#include <Tests/Support/LogRecorder.h>
#include <Tests/Support/TemporaryFolder.h>

using namespace Tesmo::System::LogStreams;
using namespace Zelkor::Discovery;

namespace
{
constexpr const char* name = "DiscoveryClient.log";

void WriteRow(const char* text, LogStreamLevel level = LogStreamLevel::Critical)
{
    DiscoveryLogger::Instance().Write(LogStreamChannel("c"), text, level);
}

/// Leaves the process's logger as it found it: without a stream.
class DiscoveryLoggerTests : public FolderTest
{
protected:
    void TearDown() override
    {
        logger.SetStream({});
    }

    DiscoveryLogger& logger = DiscoveryLogger::Instance();
};
} // namespace

TEST_F(DiscoveryLoggerTests, WithoutAStreamRowsAreLostWithoutHarm)
{
    EXPECT_FALSE(logger.IsOpen());
    WriteRow("lost");
    logger.Write(LogStreamChannel("c"), "lost", InvalidOperationException(ThrowSite));
    EXPECT_THROW(logger.Close(), std::exception);

    LogRecorder recorder;
    EXPECT_TRUE(logger.IsOpen());
    logger.Close();
    EXPECT_FALSE(logger.IsOpen());
    WriteRow("lost");
    EXPECT_TRUE(recorder.Take().empty());
}

TEST_F(DiscoveryLoggerTests, OpenMakesTheFoldersAndClosesWhatWasOpen)
{
    const String deep = IO::Path::Combine(IO::Path::Combine(folder.Path("Discovery"), "DiscoveryClient"), name);
    logger.Open(deep, LogStreamLevel::Standard);
    WriteRow("row");
    WriteRow("filtered", LogStreamLevel::Debug);
    logger.Open(folder.Path("other.log"), LogStreamLevel::Standard);
    const std::string first = folder.Read("Discovery/DiscoveryClient/DiscoveryClient.log");
    EXPECT_NE(std::string::npos, first.find("|C|           |row|\r\n"));
    EXPECT_EQ(std::string::npos, first.find("filtered"));
    EXPECT_TRUE(first.ends_with("-/\r\n\r\n")); // the closing line
    EXPECT_TRUE(folder.Read("other.log").ends_with("|Start other.log|\r\n"));

    folder.Write("file", "");
    EXPECT_THROW(logger.Open(folder.Path("file/deep/c.log"), LogStreamLevel::Standard), IO::IOException);
    EXPECT_TRUE(logger.IsOpen()); // the folder comes first
    folder.MakeFolder("taken.log");
    EXPECT_THROW(logger.Open(folder.Path("taken.log"), LogStreamLevel::Standard), IO::IOException);
    EXPECT_FALSE(logger.IsOpen());
}

TEST_F(DiscoveryLoggerTests, ReopenNeedsTheFileOfAnOpenAndLaterBannersAreWideAtDebug)
{
    logger.Open(folder.Path(name), LogStreamLevel::Debug);
    logger.Reopen(); // it is open: no effect
    WriteRow("first", LogStreamLevel::Debug);
    logger.Close();
    logger.Reopen();
    WriteRow("second", LogStreamLevel::Debug);
    logger.Close();
    const std::string text = folder.Read(name);
    EXPECT_LT(text.find("|first|"), text.find("|Close DiscoveryClient.log|"));
    EXPECT_LT(text.find("|Close DiscoveryClient.log|"), text.find("|second|"));
    EXPECT_EQ(text.find("|Start "), text.rfind("|Start ", text.find("|first|"))); // one run, one "Start"
    EXPECT_TRUE(text.starts_with("/" + std::string(254, '-') + "\\\r\n"));
    EXPECT_TRUE(text.ends_with("\\" + std::string(1022, '-') + "/\r\n\r\n"));

    logger.SetStream({});
    EXPECT_THROW(logger.Reopen(), InvalidOperationException); // the file is forgotten
}

TEST_F(DiscoveryLoggerTests, ALargeFileIsSplitAtTheFirstRowAndThreeBackupsStay)
{
    folder.Write(name, std::string(6 * 1024 * 1024, 'x'));
    folder.Write("DiscoveryClient.bak", "first");
    folder.Write("DiscoveryClient.bak1", "second");
    folder.Write("DiscoveryClient.bak2", "third");
    logger.Open(folder.Path(name), LogStreamLevel::Standard);
    EXPECT_TRUE(folder.Read(name).starts_with("xxx")); // the start of the run does not split yet
    WriteRow("row");
    EXPECT_TRUE(folder.Read("DiscoveryClient.bak").ends_with("|row|\r\n"));
    EXPECT_EQ("second", folder.Read("DiscoveryClient.bak2"));
    EXPECT_FALSE(folder.Has("DiscoveryClient.bak3"));
}

TEST_F(DiscoveryLoggerTests, ALogThatAFailedSplitEndedGivesWayToANewOne)
{
    folder.Write(name, std::string(6 * 1024 * 1024, 'x'));
    folder.MakeFolder("DiscoveryClient.bak"); // in the way
    logger.Open(folder.Path(name), LogStreamLevel::Standard);
    WriteRow("splits");
    EXPECT_THROW(WriteRow("lost"), ObjectClosedException);
    EXPECT_NO_THROW(logger.Close());
    logger.Reopen();
    WriteRow("splits again");
    logger.Open(folder.Path("other.log"), LogStreamLevel::Standard);
    WriteRow("row");
    EXPECT_TRUE(folder.Read("other.log").ends_with("|row|\r\n"));

    struct Failing : public ILogStream
    {
        void Close() override
        {
            throw IO::IOException(ThrowSite);
        }
    };
    logger.SetStream(Tesmo::Sp<ILogStream>(new Failing));
    EXPECT_THROW(logger.Close(), IO::IOException);
    EXPECT_FALSE(logger.IsOpen());
}
