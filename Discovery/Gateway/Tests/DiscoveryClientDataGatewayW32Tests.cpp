#include "HostFake.h"

#include <Core/LogStream/ILogStream.h>
#include <Core/System/Exception.h>
#include <Core/System/NotSupportedException.h>
#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Discovery/Protocol/DiscoveryLogger.h>
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace Zelkor::Discovery;
using namespace Zelkor::Discovery::Client;
using Tesmo::Sp;
using Tesmo::System::Exception;
using Tesmo::System::NotSupportedException;
using Tesmo::System::String;
using Tesmo::System::Collections::Generic::List;
using namespace Tesmo::System::LogStreams;

namespace
{
std::vector<std::string> rows;

class RecordingLogStream : public ILogStream
{
public:
    using ILogStream::Write;
    void Write(const LogStreamChannel& channel, LogStreamLevel level, int, const String& message) override
    {
        rows.push_back(channel.ToString().Utf8() + " " + level.ToString().Utf8() + " " + message.Utf8());
    }
};

class DiscoveryClientDataGatewayW32Tests : public testing::Test
{
protected:
    void SetUp() override
    {
        host = HostFake();
        host.hostName = "node-7";
        rows.clear();
        DiscoveryLogger::Instance().SetStream(Sp<ILogStream>(new RecordingLogStream()));
    }

    void TearDown() override
    {
        DiscoveryLogger::Instance().Close();
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
    EXPECT_TRUE(rows.empty());
}

TEST_F(DiscoveryClientDataGatewayW32Tests, AnAdapterWhoseAddressHasNotSixBytesIsLoggedAndLeftOut)
{
    for (const std::uint32_t length : {0u, 8u, 20u})
    {
        SCOPED_TRACE(length);
        host.adapters.clear();
        rows.clear();
        AddAdapter("tunnel", length, "10.0.0.1", "255.0.0.0", "");
        AddAdapter("lan", 6, "10.0.0.2", "255.0.0.0", "");
        const std::vector<std::string> expected = {
            "ClientDataGateway Critical Unexpected MAC Address length for tunnel: " + std::to_string(length) +
            " -> NIC ignored"};

        DiscoveryClientDataGatewayW32 gateway;

        const Sp<List<Sp<NICConfig>>> configs = gateway.GetNICConfigs();
        ASSERT_EQ(1, configs->Count());
        EXPECT_EQ("lan", (*configs)[0]->FriendlyName.Utf8());
        EXPECT_EQ(expected, rows);
        rows.clear();
        EXPECT_EQ(1, gateway.GetMACAddress()->Count());
        EXPECT_EQ(expected, rows);
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

TEST_F(DiscoveryClientDataGatewayW32Tests, ChangesAreNotSupported)
{
    DiscoveryClientDataGatewayW32 gateway;
    EXPECT_THROW(gateway.ChangeIPConfig(NICConfig()), NotSupportedException);
    EXPECT_THROW(gateway.ChangeHostName("node-8"), NotSupportedException);
}

TEST_F(DiscoveryClientDataGatewayW32Tests, SharedFilesLieUnderTheProgramRoot)
{
    struct Row
    {
        const char* root;
        std::string folder;
    };
    for (const Row& row : {Row{"", "Zelkor/Common/Discovery/"}, Row{"/opt", "/opt/Zelkor/Common/Discovery/"},
                           Row{"/C d/", "/C d/Zelkor/Common/Discovery/"}})
    {
        SCOPED_TRACE(row.root);
        host.programRoot = row.root;
        const DiscoveryClientDataGatewayW32 gateway;
        const auto normal = [](const String& path)
        { return std::filesystem::path(path.Utf8()).lexically_normal().generic_string(); };
        EXPECT_EQ(row.folder + "ProductIDs", normal(gateway.ProductIDsFolder()));
        EXPECT_EQ(row.folder + "FileTransferInfos.json", normal(gateway.FileTransferInfosFile()));
    }
}

TEST_F(DiscoveryClientDataGatewayW32Tests, TheWatchersAnswersAreTheHosts)
{
    DiscoveryClientDataGatewayW32 gateway;
    host.cancelResult = 7;
    EXPECT_FALSE(gateway.RunIPChangeWatcher());
    host.addressChange = true;
    EXPECT_TRUE(gateway.RunIPChangeWatcher());
    EXPECT_EQ(7, gateway.CancelWaitForIPChange());
}
