#include "HostFake.h"

#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Tests/Support/LogRecorder.h>
#include <Tests/Support/TemporaryFolder.h>

#include <filesystem>
#include <map>

using namespace Zelkor::Discovery;

namespace
{
namespace fs = std::filesystem;
using Pairs = std::map<std::string, std::string>;

const std::string fileName = "Zelkor/Common/Discovery/FileTransferInfos.json";
const std::string format = "One of identified items is an invalid format.";
const std::string argument = "Value does not fall within the expected range.";

class FileTransferInfosFileTests : public testing::Test
{
protected:
    FileTransferInfosFileTests() : file(root.Path(fileName).Utf8())
    {
        host = HostFake();
        host.programRoot = root.Path().Utf8();
        fs::create_directories(file.parent_path());
    }

    /// @param reason  of the failure that is logged, if any
    void Expect(const Pairs& expected, const std::string& reason = "")
    {
        const Tesmo::Sp<FileTransferInfos> infos = Client::DiscoveryClientDataGatewayW32().GetFileTransferInfos();
        Pairs pairs;
        for (const auto& [key, value] : *infos->Infos)
        {
            pairs[key.Utf8()] = value.Utf8();
        }
        EXPECT_EQ(expected, pairs);
        Rows rows = log.Take();
        rows.resize(rows.empty() ? 0 : 1); // of an exception the second one tells its place
        const std::string row =
            "C ClientDataGateway: Aborting GetFileTransferInfos : exception caught in GetFTPInfos !: ";
        EXPECT_EQ(reason.empty() ? Rows() : Rows{row + reason + ", location: "}, rows);
    }

    const TemporaryFolder root;
    const fs::path file;
    LogRecorder log;
};
} // namespace

TEST_F(FileTransferInfosFileTests, TheFileIsReadAnewEachTimeAndABadOneGivesNoInfosAtAll)
{
    using Row = std::tuple<std::string, Pairs, std::string>;
    Expect({});
    for (const auto& [text, pairs, reason] :
         {Row{"{\r\n \"Server\" : \"10.0.0.5\",\r\n \"User\" : \"\xC3\xA9\"\r\n}\r\n",
              {{"Server", "10.0.0.5"}, {"User", "\xC3\xA9"}},
              ""},
          Row{"{}", {}, ""}, Row{"", {}, format}, Row{"\xEF\xBB\xBF{\"Server\":\"10.0.0.5\"}", {}, format},
          Row{R"({"Server":"10.0.0.5","Port":21})", {}, argument},
          Row{R"({"Server":"10.0.0.5","Server":"10.0.0.6"})", {}, argument}})
    {
        SCOPED_TRACE(text);
        root.Write(fileName, text);
        Expect(pairs, reason);
    }
    fs::remove(file);
    Expect({});
    fs::create_directory(file);
    Expect({}); // a folder is no file
}

TEST_F(FileTransferInfosFileTests, WhatIsLongerThanADatagramOrCannotBeReadToAnEndIsLogged)
{
    constexpr std::uintmax_t longest = 65507; // RFC 768, RFC 791
    root.Write(fileName, R"({"Server":"10.0.0.5"})");
    fs::resize_file(file, longest); // by zeros, which end the text
    Expect({{"Server", "10.0.0.5"}});
    fs::resize_file(file, longest + 1);
    Expect({}, "The file is longer than a datagram.");
    if (!fs::exists("/dev/zero"))
    {
        GTEST_SKIP() << "the system has no such files";
    }
    fs::remove(file);
    fs::create_symlink("/proc/self/mem", file); // reading its start fails for everybody
    Expect({}, "I/O error occured.");
    fs::remove(file);
    fs::create_symlink("/dev/zero", file);
    Expect({}, "The file is a pipe or a device, which may have no end.");
}
