#include "HostFake.h"

#include <Core/System/Exception.h>
#include <Core/System/Net/IPAddress.h>
#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Tests/Support/LogRecorder.h>
#include <cstring>
#include <filesystem>
#include <functional>

using namespace Zelkor::Discovery;
using namespace Zelkor::Discovery::Client;
using Tesmo::Sp;
using Tesmo::System::String;
using Tesmo::System::Collections::Generic::List;
using Tesmo::System::Net::IPAddress;

namespace
{
class DiscoveryClientDataGatewayW32Tests : public LogTest
{
protected:
    DiscoveryClientDataGatewayW32Tests()
    {
        host = HostFake();
        host.hostName = "node-7";
    }
};

/// With the hardware address A0:A1:A2:A3:A4:A5, or what macLength makes of it, and a number of its own.
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

std::string MessageOf(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (const Tesmo::System::Exception& failure)
    {
        return failure.Message().Utf8();
    }
    return "no failure";
}

NICConfig Request(const char* name, const char* macAddress, const char* address, const char* gateway = "10.1.0.1")
{
    return {name,
            MACAddress(macAddress),
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
    EXPECT_EQ(noAdapters, MessageOf([&] { gateway.GetMACAddress(); }));
    EXPECT_EQ(noAdapters, MessageOf([&] { gateway.GetHost(); }));
    EXPECT_EQ(noAdapters, MessageOf([&] { gateway.ChangeIPConfig(NICConfig()); }));
    host.hostName.reset();
    EXPECT_EQ(noName, MessageOf([&] { gateway.GetHost(); }));
    EXPECT_EQ(noName, MessageOf([&] { gateway.ChangeHostName("node-9"); }));

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

TEST_F(DiscoveryClientDataGatewayW32Tests, OnlyADifferentConfigurationOfAnOwnAdapterIsApplied)
{
    AddAdapter("lan", 6, "10.1.2.3", "255.255.0.0", "10.1.0.1");
    AddAdapter("bare", 6, "10.9.2.3", "255.255.0.0", "");
    host.adapters[1].macBytes[0] = 1;
    const char* const lan = "A0:A1:A2:A3:A4:A5";
    NICConfig otherMTU = Request("lan", lan, "10.1.2.3");
    otherMTU.MTU = "1500";
    using Row = std::tuple<const char*, NICConfig, Rows>;
    for (const auto& [description, request, changes] :
         {Row{"as it is", Request("another name", lan, "10.1.2.3"), {}},
          Row{"another host's", Request("lan", "01:02:03:04:05:06", "10.1.2.4"), {}},
          Row{"moved", Request("", lan, "10.1.2.4"), {"probes lan", "set lan 10.1.2.4 255.255.0.0 10.1.0.1"}},
          Row{"other MTU", otherMTU, {"probes lan", "set lan 10.1.2.3 255.255.0.0 10.1.0.1"}},
          Row{"no gateway",
              Request("", "01:A1:A2:A3:A4:A5", "10.9.2.3", "255.255.255.255"),
              {"probes bare", "set bare 10.9.2.3 255.255.0.0 255.255.255.255"}}})
    {
        SCOPED_TRACE(description);
        host.changes.clear();

        DiscoveryClientDataGatewayW32().ChangeIPConfig(request);

        EXPECT_EQ(changes, host.changes);
        const Rows rows = log.Take();
        ASSERT_EQ(1u, rows.size());
        EXPECT_EQ(changes.empty(), rows[0] == "S ClientDataGateway: No IP configuration to update on this Client.");
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
        requests->Add(Sp<NICConfig>(new NICConfig(Request(name, macAddress.c_str(), "10.1.2.4"))));
    }
    host.probesResult = 1; // without any effect
    host.settingsResult = 1;
    host.refusingAdapter = "second";
    host.remark = "a reason";
    const std::string values = "10.1.2.4/255.255.0.0/10.1.0.1";

    EXPECT_EQ("W32Gateway::SetIPAddresses failed ! Args : second/" + values,
              MessageOf([&] { DiscoveryClientDataGatewayW32().ChangeIPConfig(requests); }));

    EXPECT_EQ((Rows{"probes first", "set first 10.1.2.4 255.255.0.0 10.1.0.1", "probes second",
                    "set second 10.1.2.4 255.255.0.0 10.1.0.1"}),
              host.changes);
    const std::string row = "S ClientDataGateway: Updating IP config of ";
    EXPECT_EQ((Rows{row + "first (01:A1:A2:A3:A4:A5). New IP config : " + values,
                    "C ClientDataGateway: IP config of first : a reason",
                    row + "second (02:A1:A2:A3:A4:A5). New IP config : " + values,
                    "C ClientDataGateway: IP config of second : a reason"}),
              log.Take());
}

TEST_F(DiscoveryClientDataGatewayW32Tests, OfAdaptersWithOneAddressThoseAreChangedThatTheRequestMeans)
{
    struct Row
    {
        const char* description;
        const char* requestedName;
        std::vector<std::pair<const char*, std::uint32_t>> stack; ///< names, each with the number of the one below it
        std::vector<std::string> changed;
    };
    for (const Row& row :
         {Row{"the name decides", "lan.7", {{"lan", 0}, {"lan.7", 1}, {"twin", 0}}, {"lan.7"}},
          Row{"else the lowest of the stack", "LAN.7", {{"lan.7", 2}, {"lan", 0}}, {"lan"}},
          Row{"also over one with an address of its own", "", {{"lan.7.8", 2}, {"macvlan", 3}, {"lan", 0}}, {"lan"}},
          Row{"one alone needs no name", "x", {{"macvlan", 2}, {"lan.7", 0}}, {"lan.7"}},
          Row{"what stands on none of them stays", "", {{"lan", 0}, {"twin", 9}, {"lan.7", 1}}, {"lan", "twin"}},
          Row{"a ring has no lowest", "", {{"one", 2}, {"two", 1}}, {"one", "two"}}})
    {
        SCOPED_TRACE(row.description);
        host.adapters.clear();
        for (const auto& [name, lower] : row.stack)
        {
            AddAdapter(name, 6, "10.1.2.3", "255.255.0.0", "10.1.0.1");
            host.adapters.back().lowerIndex = lower;
            host.adapters.back().macBytes[0] = std::strcmp(name, "macvlan") == 0 ? 2 : 0;
        }
        Sp<List<Sp<NICConfig>>> requests(new List<Sp<NICConfig>>());
        requests->Add(Sp<NICConfig>(new NICConfig(Request(row.requestedName, "00:A1:A2:A3:A4:A5", "10.1.2.5"))));
        requests->Add((*requests)[0]);
        std::vector<std::string> expected;
        for (int named = 0; named < requests->Count(); ++named)
        {
            for (const std::string& name : row.changed)
            {
                expected.push_back("probes " + name);
                expected.push_back("set " + name + " 10.1.2.5 255.255.0.0 10.1.0.1");
            }
        }

        host.changes.clear();
        DiscoveryClientDataGatewayW32().ChangeIPConfig(requests);

        EXPECT_EQ(expected, host.changes);
    }
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
        EXPECT_EQ(message, MessageOf([&] { DiscoveryClientDataGatewayW32().ChangeHostName(newName); }));
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
