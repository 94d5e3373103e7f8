#include "HostFake.h"

#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Tests/Support/CoreTest.h>
#include <Tests/Support/LogRecorder.h>
#include <Tests/Support/TemporaryFolder.h>

#include <filesystem>
#include <map>

using namespace Zelkor::Discovery;
using namespace Zelkor::Discovery::Client;

namespace
{
namespace fs = std::filesystem;
using Pairs = std::map<std::string, std::string>;

const std::string fileName = "Zelkor/Common/Discovery/FileTransferInfos.json";
const std::string failed = "C ClientDataGateway: Aborting GetFileTransferInfos : exception caught in GetFTPInfos !: ";

class FileTransferInfosFileTests : public testing::Test
{
protected:
    FileTransferInfosFileTests() : file(root.Path(fileName).Utf8())
    {
        host = HostFake();
        host.programRoot = root.Path().Utf8();
        fs::create_directories(file.parent_path());
    }

    static Pairs Infos()
    {
        const Tesmo::Sp<FileTransferInfos> infos = DiscoveryClientDataGatewayW32().GetFileTransferInfos();
        Pairs pairs;
        for (const auto& [key, value] : *infos->Infos)
        {
            pairs[key.Utf8()] = value.Utf8();
        }
        return pairs;
    }

    /// The file gives no infos and a failure of one exception in the log.
    void ExpectFailure(const std::string& reason)
    {
        EXPECT_EQ(Pairs(), Infos());
        const std::vector<std::string> rows = log.Take();
        ASSERT_EQ(2u, rows.size());
        EXPECT_EQ(failed + reason + ", location: ", rows[0]);
    }

    const TemporaryFolder root;
    const fs::path file;
    LogRecorder log;
};
} // namespace

TEST_F(FileTransferInfosFileTests, TheFileIsReadAnewEachTime)
{
    EXPECT_EQ(Pairs(), Infos());
    root.Write(fileName, "{\r\n  \"Server\" : \"10.0.0.5\",\r\n  \"User\" : \"\xC3\xA9t\xC3\xA9\"\r\n}\r\n");
    EXPECT_EQ((Pairs{{"Server", "10.0.0.5"}, {"User", "\xC3\xA9t\xC3\xA9"}}), Infos());
    root.Write(fileName, "{}");
    EXPECT_EQ(Pairs(), Infos());
    fs::remove(file);
    EXPECT_EQ(Pairs(), Infos());
    fs::create_directory(file);
    EXPECT_EQ(Pairs(), Infos()) << "a folder is no file";
    EXPECT_TRUE(log.Take().empty());
}

TEST_F(FileTransferInfosFileTests, BadTextIsLoggedAndGivesNoInfosAtAll)
{
    const std::string format = "One of identified items is an invalid format.";
    const std::string argument = "Value does not fall within the expected range.";
    using Row = std::tuple<std::string, std::string>;
    for (const auto& [text, reason] :
         {Row{"", format}, Row{"\r\n", format}, Row{R"({"Server":"10.0)", format}, Row{R"(["Server"])", format},
          Row{R"("Server")", format}, Row{"\xEF\xBB\xBF{\"Server\":\"10.0.0.5\"}", format},
          Row{R"({"Server":"10.0.0.5","Port":21})", argument}, Row{R"({"Server":"10.0.0.5","Port":null})", argument},
          Row{R"({"Server":"10.0.0.5","Server":"10.0.0.6"})", argument}})
    {
        SCOPED_TRACE(text);
        root.Write(fileName, text);
        ExpectFailure(reason);
    }
}

TEST_F(FileTransferInfosFileTests, AFileLongerThanADatagramIsNotRead)
{
    constexpr std::uintmax_t longest = 65507; // RFC 768, RFC 791
    root.Write(fileName, R"({"Server":"10.0.0.5"})");
    fs::resize_file(file, longest); // by zeros, which end the text
    EXPECT_EQ((Pairs{{"Server", "10.0.0.5"}}), Infos());
    for (const std::uintmax_t size : {longest + 1, std::uintmax_t{50'000'000}})
    {
        fs::resize_file(file, size);
        ExpectFailure("The file is longer than a datagram.");
    }
}

TEST_F(FileTransferInfosFileTests, WhatCannotBeReadToAnEndIsLogged)
{
    using Row = std::pair<const char*, const char*>;
    for (const auto& [target, reason] :
         {Row{"/proc/self/mem", "I/O error occured."}, // reading its start fails for everybody
          Row{"/dev/zero", "The file is a pipe or a device, which may have no end."}})
    {
        SCOPED_TRACE(target);
        std::error_code error;
        fs::create_symlink(target, file, error);
        if (error || !fs::exists(file))
        {
            GTEST_SKIP() << "the system has no such file";
        }
        ExpectFailure(reason);
        fs::remove(file);
    }
}

TEST_F(FileTransferInfosFileTests, AFailingScanForPluginsIsLogged)
{
    host.programRoot = std::string(3000, 'x'); // longer than any path
    DiscoveryClientDataGatewayW32 gateway;

    EXPECT_EQ(0, gateway.GetProducts()->Count());

    const std::vector<std::string> rows = log.Take();
    ASSERT_EQ(2u, rows.size());
    EXPECT_TRUE(rows[0].starts_with("C ClientDataGateway: Aborting GetProducts : exception caught in GetProducts !: "));
    EXPECT_EQ(Pairs(), Infos()) << "no such file can exist";
    EXPECT_TRUE(log.Take().empty());
}
