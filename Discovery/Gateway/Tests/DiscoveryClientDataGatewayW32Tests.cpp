#include "HostFake.h"

#include <Core/System/Exception.h>
#include <Core/System/Net/IPAddress.h>
#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Tests/Support/CoreTest.h>
#include <Tests/Support/LogRecorder.h>
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <functional>

using namespace Zelkor::Discovery;
using namespace Zelkor::Discovery::Client;
using Tesmo::Sp;
using Tesmo::System::Exception;
using Tesmo::System::String;
using Tesmo::System::Collections::Generic::List;

namespace
{
class DiscoveryClientDataGatewayW32Tests : public LogTest
{
protected:
    void SetUp() override
    {
        host = HostFake();
        host.hostName = "node-7";
    }
};

void AddAdapter(const char* name, std::uint32_t macLength, const char* address, const char* mask, const char* gateway)
{
    Platform::Adapter adapter;
    adapter.friendlyName = name;
    adapter.macLength = macLength;
    for (unsigned char i = 0; i < macLength && i < Platform::AdapterAddressSize; ++i)
    {
        adapter.macBytes[i] = static_cast<unsigned char>(0xA0 + i);
    }
    std::strcpy(adapter.ipAddressText, address);
    std::strcpy(adapter.ipMaskText, mask);
    std::strcpy(adapter.gatewayText, gateway);
    host.adapters.push_back(adapter);
}

std::string MessageOf(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (const Exception& failure)
    {
        return failure.Message().Utf8();
    }
    return "no failure";
}

Tesmo::System::Net::IPAddress Address(const char* text)
{
    return Tesmo::System::Net::IPAddress::Parse(text);
}

std::string Describe(const NICConfig& config)
{
    return config.FriendlyName.Utf8() + " " + config.MACAddress.ToString().Utf8() + " " +
           config.IPAddress.ToString().Utf8() + "/" + config.SubNetMask.ToString().Utf8() + "/" +
           config.DefaultGateway.ToString().Utf8() + " " + (config.HasDefaultGateway ? "gateway " : "none ") +
           config.MTU.Utf8();
}
} // namespace

TEST_F(DiscoveryClientDataGatewayW32Tests, EachAdapterBecomesARecordInTheHostsOrder)
{
    AddAdapter("second", 6, "10.1.2.3", "255.255.0.0", "10.1.0.1");
    AddAdapter("first", 6, "10.2.2.3", "255.0.0.0", "");
    AddAdapter("", 6, "", "", "");

    DiscoveryClientDataGatewayW32 gateway;
    const Sp<List<Sp<NICConfig>>> configs = gateway.GetNICConfigs();

    ASSERT_EQ(3, configs->Count());
    EXPECT_EQ("second A0:A1:A2:A3:A4:A5 10.1.2.3/255.255.0.0/10.1.0.1 gateway Unknown", Describe(*(*configs)[0]));
    EXPECT_EQ("first A0:A1:A2:A3:A4:A5 10.2.2.3/255.0.0.0/255.255.255.255 none Unknown", Describe(*(*configs)[1]));
    EXPECT_EQ(" A0:A1:A2:A3:A4:A5 0.0.0.0/0.0.0.0/255.255.255.255 none Unknown", Describe(*(*configs)[2]));
    EXPECT_EQ(3, gateway.GetMACAddress()->Count());
    EXPECT_TRUE(log.Take().empty());
}

TEST_F(DiscoveryClientDataGatewayW32Tests, AnAdapterWhoseAddressHasNotSixBytesIsLoggedAndLeftOut)
{
    for (const std::uint32_t length : {0u, 8u, 20u})
    {
        SCOPED_TRACE(length);
        host.adapters.clear();
        AddAdapter("tunnel", length, "10.0.0.1", "255.0.0.0", "");
        AddAdapter("lan", 6, "10.0.0.2", "255.0.0.0", "");
        const std::vector<std::string> expected = {"C ClientDataGateway: Unexpected MAC Address length for tunnel: " +
                                                   std::to_string(length) + " -> NIC ignored"};

        DiscoveryClientDataGatewayW32 gateway;

        const Sp<List<Sp<NICConfig>>> configs = gateway.GetNICConfigs();
        ASSERT_EQ(1, configs->Count());
        EXPECT_EQ("lan", (*configs)[0]->FriendlyName.Utf8());
        EXPECT_EQ(expected, log.Take());
        EXPECT_EQ(1, gateway.GetMACAddress()->Count());
        EXPECT_EQ(expected, log.Take());
    }
}

TEST_F(DiscoveryClientDataGatewayW32Tests, UnreadableAdaptersOrHostNameFailTheSnapshot)
{
    DiscoveryClientDataGatewayW32 gateway;
    EXPECT_EQ("W32Gateway::GetAdaptersInfos failed !", MessageOf([&] { gateway.GetMACAddress(); }));
    EXPECT_EQ("W32Gateway::GetAdaptersInfos failed !", MessageOf([&] { gateway.GetNICConfigs(); }));
    EXPECT_EQ("W32Gateway::GetAdaptersInfos failed !", MessageOf([&] { gateway.GetHost(); }));

    host.hostName.reset();
    EXPECT_EQ("W32Gateway::GetHostName failed !", MessageOf([&] { gateway.GetHostName(); }));
    EXPECT_EQ("W32Gateway::GetHostName failed !", MessageOf([&] { gateway.GetHost(); }));
}

TEST_F(DiscoveryClientDataGatewayW32Tests, TheSerialNumberIsPlainDecimalText)
{
    DiscoveryClientDataGatewayW32 gateway;
    EXPECT_EQ("", gateway.GetSerialNumber().Utf8());
    host.identityNumber = 0;
    EXPECT_EQ("0", gateway.GetSerialNumber().Utf8());
    host.identityNumber = 4294967294u;
    EXPECT_EQ("4294967294", gateway.GetSerialNumber().Utf8());
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
        String GetDeviceFamily() override
        {
            return "Robot";
        }
    };
    AddAdapter("lan", 6, "10.0.0.2", "255.0.0.0", "");
    host.identityNumber = 42;

    const DiscoveryHost snapshot = Replaced().GetHost();

    EXPECT_EQ("node-7", snapshot.HostName.Utf8());
    EXPECT_FALSE(snapshot.IsHostNameReadOnly);
    EXPECT_FALSE(snapshot.RebootRequiredForIPConfigChange);
    EXPECT_TRUE(snapshot.RebootRequiredForHostNameChange);
    EXPECT_EQ("Fake PC", snapshot.DeviceType.Utf8());
    EXPECT_EQ("Robot", snapshot.DeviceFamily.Utf8());
    EXPECT_EQ("42", snapshot.SerialNumber.Utf8());
    EXPECT_EQ(1, snapshot.NICs->Count());
    EXPECT_EQ(1, snapshot.Products->Count());
    EXPECT_FALSE(snapshot.FileTransferInfos == Tesmo::null);
}

TEST_F(DiscoveryClientDataGatewayW32Tests, OneConfigurationGoesTheRoadOfAList)
{
    class Recorder : public DiscoveryClientDataGatewayW32
    {
    public:
        using DiscoveryClientDataGatewayW32::ChangeIPConfig;
        void ChangeIPConfig(Sp<List<Sp<NICConfig>>> configs) override
        {
            received = configs;
        }
        Sp<List<Sp<NICConfig>>> received;
    };
    NICConfig config;
    config.FriendlyName = "lan";
    Recorder gateway;

    gateway.ChangeIPConfig(config);
    config.FriendlyName = "changed";

    ASSERT_EQ(1, gateway.received->Count());
    EXPECT_EQ("lan", (*gateway.received)[0]->FriendlyName.Utf8());
}

TEST_F(DiscoveryClientDataGatewayW32Tests, OnlyADifferentConfigurationOfAnOwnAdapterIsApplied)
{
    AddAdapter("lan", 6, "10.1.2.3", "255.255.0.0", "10.1.0.1");
    AddAdapter("bare", 6, "10.9.2.3", "255.255.0.0", "");
    host.adapters[1].macBytes[0] = 1;
    NICConfig same = *(*DiscoveryClientDataGatewayW32().GetNICConfigs())[0];
    same.FriendlyName = "the requester's name for it";
    NICConfig moved = same;
    moved.IPAddress = Address("10.1.2.4");
    NICConfig otherMTU = same;
    otherMTU.MTU = "1500";
    NICConfig foreign = moved;
    foreign.MACAddress = MACAddress("01:02:03:04:05:06");
    const NICConfig withoutGateway = *(*DiscoveryClientDataGatewayW32().GetNICConfigs())[1];
    using Row = std::tuple<const char*, NICConfig, std::vector<std::string>>;
    for (const auto& [description, request, changes] :
         {Row{"as it is", same, {}}, Row{"another host's", foreign, {}},
          Row{"moved", moved, {"probes lan", "set lan 10.1.2.4 255.255.0.0 10.1.0.1"}},
          Row{"other MTU", otherMTU, {"probes lan", "set lan 10.1.2.3 255.255.0.0 10.1.0.1"}},
          Row{"unset gateway", withoutGateway, {"probes bare", "set bare 10.9.2.3 255.255.0.0 255.255.255.255"}}})
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
    }
    const Sp<List<Sp<NICConfig>>> owns = DiscoveryClientDataGatewayW32().GetNICConfigs();
    for (const Sp<NICConfig>& own : *owns)
    {
        own->IPAddress = Address("10.1.2.4");
        requests->Add(own);
    }
    host.probesResult = 1; // without any effect
    host.settingsResult = 1;
    host.refusingAdapter = "second";
    host.remark = "a reason";

    EXPECT_EQ("W32Gateway::SetIPAddresses failed ! Args : second/10.1.2.4/255.255.0.0/10.1.0.1",
              MessageOf([&] { DiscoveryClientDataGatewayW32().ChangeIPConfig(requests); }));

    EXPECT_EQ((std::vector<std::string>{"probes first", "set first 10.1.2.4 255.255.0.0 10.1.0.1", "probes second",
                                        "set second 10.1.2.4 255.255.0.0 10.1.0.1"}),
              host.changes);
    const Rows rows = log.Take();
    ASSERT_EQ(4u, rows.size());
    EXPECT_EQ("S ClientDataGateway: Updating IP config of first (01:A1:A2:A3:A4:A5). New IP config : "
              "10.1.2.4/255.255.0.0/10.1.0.1",
              rows[0]);
    EXPECT_EQ("C ClientDataGateway: IP config of second : a reason", rows[3]);
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
            host.adapters.back().index = static_cast<std::uint32_t>(host.adapters.size());
            host.adapters.back().lowerIndex = lower;
            host.adapters.back().macBytes[0] = std::strcmp(name, "macvlan") == 0 ? 2 : 0;
        }
        Sp<List<Sp<NICConfig>>> requests(new List<Sp<NICConfig>>());
        requests->Add(
            Sp<NICConfig>(new NICConfig(row.requestedName, MACAddress("00:A1:A2:A3:A4:A5"), Address("10.1.2.5"),
                                        Address("255.255.0.0"), Address("10.1.0.1"), "Unknown")));
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
    struct Row
    {
        const char* name;
        int nameResult;
        int rebootResult;
        std::vector<std::string> changes;
        std::string message;
    };
    const std::string failed = "W32Gateway::SetHostName failed ! Args : ";
    for (const Row& row :
         {Row{"node-7", 1, 1, {}, "no failure"}, Row{"Node-7", 0, 0, {"name Node-7", "reboot 30"}, "no failure"},
          Row{"a b", 1, 0, {"name a b"}, failed + "a b"},
          Row{"node-8", 0, 1, {"name node-8", "reboot 30"}, failed + "node-8"}})
    {
        SCOPED_TRACE(row.name);
        host.changes.clear();
        host.nameResult = row.nameResult;
        host.rebootResult = row.rebootResult;
        EXPECT_EQ(row.message, MessageOf([&] { DiscoveryClientDataGatewayW32().ChangeHostName(row.name); }));
        EXPECT_EQ(row.changes, host.changes);
    }
    host.hostName.reset();
    EXPECT_EQ("W32Gateway::GetHostName failed !",
              MessageOf([] { DiscoveryClientDataGatewayW32().ChangeHostName("node-9"); }));
}

TEST_F(DiscoveryClientDataGatewayW32Tests, SharedFilesLieUnderTheProgramRoot)
{
    using Row = std::tuple<const char*, std::string>;
    for (const auto& [root, folder] :
         {Row{"", "Zelkor/Common/Discovery/"}, Row{"/opt", "/opt/Zelkor/Common/Discovery/"},
          Row{"/C d/", "/C d/Zelkor/Common/Discovery/"}})
    {
        SCOPED_TRACE(root);
        host.programRoot = root;
        const DiscoveryClientDataGatewayW32 gateway;
        const auto normal = [](const String& path)
        { return std::filesystem::path(path.Utf8()).lexically_normal().generic_string(); };
        EXPECT_EQ(folder + "ProductIDs", normal(gateway.ProductIDsFolder()));
        EXPECT_EQ(folder + "FileTransferInfos.json", normal(gateway.FileTransferInfosFile()));
    }
}

TEST_F(DiscoveryClientDataGatewayW32Tests, TheWatchersAnswersAreTheHostsAndTheWatchEndsWithTheGateway)
{
    {
        DiscoveryClientDataGatewayW32 gateway;
        host.cancelResult = 7;
        EXPECT_FALSE(gateway.RunIPChangeWatcher());
        host.addressChange = true;
        EXPECT_TRUE(gateway.RunIPChangeWatcher());
        EXPECT_EQ(7, gateway.CancelWaitForIPChange());
        EXPECT_EQ(0, host.endedWatches);
    }
    EXPECT_EQ(1, host.endedWatches);
}
