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

class FileTransferInfosFileTests : public LogTest
{
protected:
    FileTransferInfosFileTests() : file(root.Path(fileName).Utf8())
    {
        host = HostFake();
        host.programRoot = root.Path().Utf8();
        fs::create_directories(file.parent_path());
    }

    void Expect(const Pairs& expected, bool isGood = true)
    {
        const Tesmo::Sp<FileTransferInfos> infos = Client::DiscoveryClientDataGatewayW32().GetFileTransferInfos();
        Pairs pairs;
        for (const auto& [key, value] : *infos->Infos)
        {
            pairs[key.Utf8()] = value.Utf8();
        }
        EXPECT_EQ(expected, pairs);
        const Rows failure = {"E ClientDataGateway: Aborting GetFileTransferInfos : exception caught in GetFTPInfos !"};
        EXPECT_EQ(isGood ? Rows() : failure, log.Take());
    }

    const TemporaryFolder root;
    const fs::path file;
};
} // namespace

TEST_F(FileTransferInfosFileTests, TheFileIsReadAnewEachTimeAndABadOneGivesNoInfosAtAll)
{
    Expect({});
    root.Write(fileName, "{\r\n \"Server\" : \"10.0.0.5\",\r\n \"User\" : \"\xC3\xA9\"\r\n}\r\n");
    Expect({{"Server", "10.0.0.5"}, {"User", "\xC3\xA9"}});
    for (const char* const text : {"", "\xEF\xBB\xBF{}", R"({"Server":"10.0.0.5","Port":21})", R"({"a":"","a":""})"})
    {
        SCOPED_TRACE(text);
        root.Write(fileName, text);
        Expect({}, false);
    }
    fs::remove(file);
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
    Expect({}, false);
    if (!fs::exists("/dev/zero"))
    {
        GTEST_SKIP() << "the system has no such files";
    }
    for (const char* const target :
         {"/proc/self/mem", "/dev/zero"}) // reading the start of the first fails for everybody
    {
        fs::remove(file);
        fs::create_symlink(target, file);
        Expect({}, false);
    }
}
