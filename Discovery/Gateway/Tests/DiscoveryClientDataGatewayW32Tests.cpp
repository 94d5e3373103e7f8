#include "HostFake.h"

#include <Core/System/Net/IPAddress.h>
#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Tests/Support/LogRecorder.h>
#include <Tests/Support/TemporaryFolder.h>
#include <cstring>
#include <filesystem>
#include <map>

namespace Zelkor::Discovery::Client
{
using Collections::Generic::List;
using Net::IPAddress;

namespace
{
namespace fs = std::filesystem;

class DiscoveryClientDataGatewayW32Tests : public LogTest
{
protected:
    DiscoveryClientDataGatewayW32Tests()
    {
        host = HostFake();
        host.hostName = "node-7";
    }

    /// Expects the infos of the file under a root folder, or the row for a file that can't be read.
    void ExpectInfos(const TemporaryFolder& root, const std::map<std::string, std::string>& expected,
                     bool isGood = true)
    {
        host.programRoot = root.Path().Utf8();
        const Sp<FileTransferInfos> infos = DiscoveryClientDataGatewayW32().GetFileTransferInfos();
        std::map<std::string, std::string> pairs;
        for (const auto& [key, value] : *infos->Infos)
        {
            pairs[key.Utf8()] = value.Utf8();
        }
        EXPECT_EQ(expected, pairs);
        const Rows failure = {"E ClientDataGateway: Aborting GetFileTransferInfos : exception caught in GetFTPInfos !"};
        EXPECT_EQ(isGood ? Rows() : failure, log.Take());
    }
};

/// Adds an adapter with macLength bytes of the hardware address A0:A1:A2:A3:A4:A5:A6:A7, and the next index.
void AddAdapter(const char* name, std::uint32_t macLength, const char* address, const char* mask, const char* gateway)
{
    Platform::Adapter& adapter = host.adapters.emplace_back();
    adapter.index = static_cast<std::uint32_t>(host.adapters.size());
    adapter.friendlyName = name;
    adapter.macLength = macLength;
    for (unsigned char i = 0; i < macLength && i < Platform::AdapterAddressSize; ++i)
    {
        adapter.macBytes[i] = static_cast<unsigned char>(0xA0 + i);
    }
    std::strcpy(adapter.ipAddressText, address);
    std::strcpy(adapter.ipMaskText, mask);
    std::strcpy(adapter.gatewayText, gateway);
}

NICConfig Request(const char* name, const std::string& macAddress, const char* address, const char* gateway)
{
    return {name,
            MACAddress(macAddress.c_str()),
            IPAddress::Parse(address),
            IPAddress::Parse("255.255.0.0"),
            IPAddress::Parse(gateway),
            "Unknown"};
}

std::vector<std::string> Describe(const List<Sp<NICConfig>>& configs)
{
    std::vector<std::string> texts;
    for (const Sp<NICConfig>& config : configs)
    {
        texts.push_back(config->FriendlyName.Utf8() + " " + config->MACAddress.ToString().Utf8() + " " +
                        config->IPAddress.ToString().Utf8() + "/" + config->SubNetMask.ToString().Utf8() + "/" +
                        config->DefaultGateway.ToString().Utf8() +
                        (config->HasDefaultGateway ? " gateway " : " none ") + config->MTU.Utf8());
    }
    return texts;
}
} // namespace

TEST_F(DiscoveryClientDataGatewayW32Tests, EachAdapterWithSixBytesOfAddressBecomesARecordInTheHostsOrder)
{
    AddAdapter("second", 6, "10.1.2.3", "255.255.0.0", "10.1.0.1");
    AddAdapter("first", 6, "10.2.2.3", "255.0.0.0", "");
    Rows ignored;
    for (const std::uint32_t length : {0u, 8u, 20u})
    {
        AddAdapter("tunnel", length, "10.0.0.1", "255.0.0.0", "");
        ignored.push_back("C ClientDataGateway: Unexpected MAC Address length for tunnel: " + std::to_string(length) +
                          " -> NIC ignored");
    }
    AddAdapter("", 6, "", "", "");
    DiscoveryClientDataGatewayW32 gateway;

    EXPECT_EQ((Rows{"second A0:A1:A2:A3:A4:A5 10.1.2.3/255.255.0.0/10.1.0.1 gateway Unknown",
                    "first A0:A1:A2:A3:A4:A5 10.2.2.3/255.0.0.0/255.255.255.255 none Unknown",
                    " A0:A1:A2:A3:A4:A5 0.0.0.0/0.0.0.0/255.255.255.255 none Unknown"}),
              Describe(*gateway.GetNICConfigs()));
    EXPECT_EQ(ignored, log.Take());
    EXPECT_EQ(3, gateway.GetMACAddress()->Count());
    EXPECT_EQ(ignored, log.Take());
}

TEST_F(DiscoveryClientDataGatewayW32Tests, WhatCannotBeReadFailsTheSnapshotOrOnlyThinsIt)
{
    const std::string noAdapters = "W32Gateway::GetAdaptersInfos failed !";
    const std::string noName = "W32Gateway::GetHostName failed !";
    DiscoveryClientDataGatewayW32 gateway;
    EXPECT_EQ(noAdapters, FailureOf([&] { gateway.GetMACAddress(); }).Message().Utf8());
    EXPECT_EQ(noAdapters, FailureOf([&] { gateway.GetHost(); }).Message().Utf8());
    EXPECT_EQ(noAdapters, FailureOf([&] { gateway.ChangeIPConfig(NICConfig()); }).Message().Utf8());
    host.hostName.reset();
    EXPECT_EQ(noName, FailureOf([&] { gateway.GetHost(); }).Message().Utf8());
    EXPECT_EQ(noName, FailureOf([&] { gateway.ChangeHostName("node-9"); }).Message().Utf8());

    host.programRoot = std::string(3000, 'x'); // longer than any path
    DiscoveryClientDataGatewayW32 without;
    EXPECT_EQ(0, without.GetProducts()->Count());
    EXPECT_EQ(Rows{"E ClientDataGateway: Aborting GetProducts : exception caught in GetProducts !"}, log.Take());
    EXPECT_EQ(0, without.GetFileTransferInfos()->Infos->Count());
}

TEST_F(DiscoveryClientDataGatewayW32Tests, GetHostAsksTheObjectsOwnSources)
{
    class Replaced : public DiscoveryClientDataGatewayW32
    {
    public:
        Sp<List<Sp<DiscoveryHostProduct>>> GetProducts() override
        {
            Sp<List<Sp<DiscoveryHostProduct>>> products(new List<Sp<DiscoveryHostProduct>>());
            products->Add(Sp<DiscoveryHostProduct>(new DiscoveryHostProduct("type", "serial", "version", "name")));
            return products;
        }
        Sp<FileTransferInfos> GetFileTransferInfos() override
        {
            Sp<FileTransferInfos> infos(new FileTransferInfos());
            infos->Infos->Add("key", "value");
            return infos;
        }
    };
    AddAdapter("lan", 6, "10.0.0.2", "255.0.0.0", "");
    for (const auto& [number, text] : {std::pair<std::optional<std::uint32_t>, std::string>(std::nullopt, ""),
                                       {0, "0"},
                                       {4294967294u, "4294967294"}})
    {
        host.identityNumber = number;
        DiscoveryHost expected("node-7", false, false, true, "Fake PC", "Computer", text.c_str());
        expected.NICs = Replaced().GetNICConfigs();
        expected.Products = Replaced().GetProducts();
        expected.FileTransferInfos = Replaced().GetFileTransferInfos();

        const DiscoveryHost snapshot = Replaced().GetHost();

        EXPECT_TRUE(expected == snapshot) << text;
        EXPECT_TRUE(snapshot.RebootRequiredForHostNameChange) << "which isn't compared";
    }
}

TEST_F(DiscoveryClientDataGatewayW32Tests, OnlyADifferentConfigurationOfTheAdapterThatIsMeantIsApplied)
{
    // name, first byte of the hardware address, numbers of the adapters below
    using Own = std::tuple<const char*, unsigned char, std::vector<std::uint32_t>>;
    for (const auto& [name, first, lowers] :
         {Own{"lan", 1, {}}, Own{"lan.7", 1, {1}}, Own{"top", 2, {4}}, Own{"middle", 3, {5}}, Own{"base", 2, {}},
          Own{"twin", 4, {}}, Own{"stray", 4, {99}}, Own{"above", 4, {1, 6, 2}}, Own{"one", 5, {10}},
          Own{"two", 5, {9}}, Own{"bare", 6, {}}})
    {
        AddAdapter(name, 6, "10.1.2.3", "255.255.0.0", std::strcmp(name, "bare") == 0 ? "" : "10.1.0.1");
        host.adapters.back().macBytes[0] = first;
        host.adapters.back().lowerIndexes = lowers;
    }
    using Row = std::tuple<const char*, const char*, std::string, const char*, const char*, const char*, Rows>;
    for (const auto& [description, name, first, address, gateway, MTU, changed] :
         {Row{"as it is", "lan", "01", "10.1.2.3", "10.1.0.1", "Unknown", {}},
          Row{"another host's", "lan", "07", "10.1.2.4", "10.1.0.1", "Unknown", {}},
          Row{"another MTU", "lan", "01", "10.1.2.3", "10.1.0.1", "1500", {"lan"}},
          Row{"without a gateway, now as then", "lan", "06", "10.1.2.3", "255.255.255.255", "Unknown", {"bare"}},
          Row{"the name decides among several", "lan.7", "01", "10.1.2.4", "10.1.0.1", "Unknown", {"lan.7"}},
          Row{"else the lowest of the stack", "LAN.7", "01", "10.1.2.4", "10.1.0.1", "Unknown", {"lan"}},
          Row{"also over one with an address of its own", "", "02", "10.1.2.4", "10.1.0.1", "Unknown", {"base"}},
          Row{"one alone needs no name", "lan", "03", "10.1.2.4", "10.1.0.1", "Unknown", {"middle"}},
          Row{"all that stand on none of them", "", "04", "10.1.2.4", "10.1.0.1", "Unknown", {"twin", "stray"}},
          Row{"a ring has no lowest", "", "05", "10.1.2.4", "10.1.0.1", "Unknown", {"one", "two"}}})
    {
        SCOPED_TRACE(description);
        NICConfig request = Request(name, first + ":A1:A2:A3:A4:A5", address, gateway);
        request.MTU = MTU;
        Rows changes;
        for (const std::string& adapter : changed)
        {
            changes.push_back("set " + adapter + " " + address + " 255.255.0.0 " + gateway);
        }
        host.changes.clear();

        DiscoveryClientDataGatewayW32().ChangeIPConfig(request);

        EXPECT_EQ(changes, host.changes);
        const Rows none = {"S ClientDataGateway: No IP configuration to update on this Client."};
        EXPECT_EQ(changed.empty(), log.Take() == none);
    }
}

TEST_F(DiscoveryClientDataGatewayW32Tests, ChangesStopAtTheFirstAdapterThatRefuses)
{
    Sp<List<Sp<NICConfig>>> requests(new List<Sp<NICConfig>>());
    for (const char* const name : {"first", "second", "third"})
    {
        AddAdapter(name, 6, "10.1.2.3", "255.255.0.0", "10.1.0.1");
        host.adapters.back().macBytes[0] = static_cast<unsigned char>(host.adapters.size());
        const std::string macAddress = "0" + std::to_string(host.adapters.size()) + ":A1:A2:A3:A4:A5";
        requests->Add(Sp<NICConfig>(new NICConfig(Request(name, macAddress, "10.1.2.4", "10.1.0.1"))));
    }
    requests->Insert(0, (*requests)[0]); // named twice, it is changed twice
    host.outcomes["first"] = {0, "a hint", true};
    host.outcomes["second"] = {1, "a reason", false};
    const std::string values = "10.1.2.4/255.255.0.0/10.1.0.1";

    EXPECT_EQ("W32Gateway::SetIPAddresses failed ! Args : second/" + values,
              FailureOf([&] { DiscoveryClientDataGatewayW32().ChangeIPConfig(requests); }).Message().Utf8());

    EXPECT_EQ((Rows{"set first 10.1.2.4 255.255.0.0 10.1.0.1", "notice", "set first 10.1.2.4 255.255.0.0 10.1.0.1",
                    "notice", "set second 10.1.2.4 255.255.0.0 10.1.0.1"}),
              host.changes);
    const std::string row = "S ClientDataGateway: Updating IP config of ";
    const std::string first = row + "first (01:A1:A2:A3:A4:A5). New IP config : " + values;
    const std::string remark = "C ClientDataGateway: IP config of first : a hint";
    EXPECT_EQ((Rows{first, remark, first, remark, row + "second (02:A1:A2:A3:A4:A5). New IP config : " + values,
                    "C ClientDataGateway: IP config of second : a reason"}),
              log.Take());
}

TEST_F(DiscoveryClientDataGatewayW32Tests, ANewHostNameIsSetAndTheHostRestarted)
{
    const std::string failed = "W32Gateway::SetHostName failed ! Args : ";
    using Row = std::tuple<std::string, int, int, Rows, std::string>;
    for (const auto& [name, nameResult, rebootResult, changes, message] :
         {Row{"node-7", 1, 1, {}, "no failure"}, Row{"Node-7", 0, 0, {"name Node-7", "reboot 30"}, "no failure"},
          Row{"a b", 1, 0, {"name a b"}, failed + "a b"},
          Row{"node-8", 0, 1, {"name node-8", "reboot 30"}, failed + "node-8"}})
    {
        SCOPED_TRACE(name);
        host.changes.clear();
        host.nameResult = nameResult;
        host.rebootResult = rebootResult;
        const String newName(name);
        EXPECT_EQ(message,
                  FailureOf([&] { DiscoveryClientDataGatewayW32().ChangeHostName(newName); }).Message().Utf8());
        EXPECT_EQ(changes, host.changes);
    }
}

TEST_F(DiscoveryClientDataGatewayW32Tests, SharedFilesLieUnderTheProgramRootAndTheWatchEndsWithTheGateway)
{
    const auto normal = [](const String& path)
    { return std::filesystem::path(path.Utf8()).lexically_normal().generic_string(); };
    for (const auto& [root, folder] : {std::pair<const char*, std::string>("", ""), {"/C d/", "/C d/"}})
    {
        host.programRoot = root;
        DiscoveryClientDataGatewayW32 gateway;
        EXPECT_EQ(folder + "Zelkor/Common/Discovery/ProductIDs", normal(gateway.ProductIDsFolder()));
        EXPECT_EQ(folder + "Zelkor/Common/Discovery/FileTransferInfos.json", normal(gateway.FileTransferInfosFile()));
        host.cancelResult = 7;
        host.addressChange = folder.empty();
        EXPECT_EQ(host.addressChange, gateway.RunIPChangeWatcher());
        EXPECT_EQ(7, gateway.CancelWaitForIPChange());
    }
    EXPECT_EQ(2, host.endedWatches);
}

TEST_F(DiscoveryClientDataGatewayW32Tests, FileTransferInfosAreReadAnewEachTimeAndABadFileGivesNoneAtAll)
{
    constexpr std::uintmax_t longest = 65507; // RFC 768, RFC 791
    const TemporaryFolder root;
    const std::string name = "Zelkor/Common/Discovery/FileTransferInfos.json";
    const fs::path file = root.Path(name).Utf8();
    fs::create_directories(file.parent_path());
    ExpectInfos(root, {});
    root.Write(name, "{\r\n \"Server\" : \"10.0.0.5\",\r\n \"User\" : \"\xC3\xA9\"\r\n}\r\n");
    ExpectInfos(root, {{"Server", "10.0.0.5"}, {"User", "\xC3\xA9"}});
    fs::resize_file(file, longest); // by zeros, which end the text
    ExpectInfos(root, {{"Server", "10.0.0.5"}, {"User", "\xC3\xA9"}});
    fs::resize_file(file, longest + 1);
    ExpectInfos(root, {}, false);
    for (const char* const text : {"", "\xEF\xBB\xBF{}", R"({"Server":"10.0.0.5","Port":21})", R"({"a":"","a":""})"})
    {
        SCOPED_TRACE(text);
        root.Write(name, text);
        ExpectInfos(root, {}, false);
    }
    fs::remove(file);
    fs::create_directory(file);
    ExpectInfos(root, {});                                           // a folder is no file
    for (const char* const target : {"/proc/self/mem", "/dev/zero"}) // reading the first fails for everybody
    {
        fs::remove(file);
        if (fs::path(target).is_absolute()) // not on Win32
        {
            fs::create_symlink(target, file);
            ExpectInfos(root, {}, false);
        }
    }
}
} // namespace Zelkor::Discovery::Client
