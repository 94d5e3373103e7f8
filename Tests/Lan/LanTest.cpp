#include "LanTest.h"

#include <csignal>
#include <cstdlib>

namespace Lan
{
namespace
{
/// Tests that do not run with the Win32 client, by the begin of their names.
constexpr std::pair<const char*, const char*> LeftOutOnWin32[] = {
    {"AClientSpeaksWhenItGetsItsFirstAdapter", "Wine never signals a change of addresses"},
    {"AnAddressThatADatagramBrought", "Windows has no managers of adapters, and Wine's netsh changes nothing"},
    {"WhatIsRefusedOrForeign", "Wine takes any name, and its netsh says yes to any address"},
    {"ASocketClosedFromOutside", "on Windows no program shuts down the socket of another"},
};
} // namespace

bool IsWin32()
{
    return std::getenv("LAN_WIN32") != nullptr;
}

std::chrono::seconds StopLimit()
{
    return std::chrono::seconds(IsWin32() ? 15 : 2);
}

std::string Adapter::Json() const
{
    return R"({"FriendlyName":")" + name + R"(","MACAddress":")" + mac + R"(","IPAddress":")" + address +
           R"(","SubNetMask":")" + mask + R"(","DefaultGateway":")" + gateway + R"(","MTU":"Unknown"})";
}

std::string Announcement(const std::string& type, const std::string& broadcast, const std::vector<Adapter>& adapters,
                         const Adapter* source)
{
    std::string nics;
    for (const Adapter& adapter : adapters)
    {
        nics += (nics.empty() ? "" : ",") + adapter.Json();
    }
    return R"({"DiscoveryMessageType":")" + type + R"(","DiscoveryVersion":"1.0.23","Broadcast":")" + broadcast +
           R"(","Host":{"HostName":"STUDIO4","IsHostNameReadOnly":false,"RebootRequiredForIPConfigChange":false,)"
           R"("RebootRequiredForHostNameChange":true,"DeviceType":")" +
           (IsWin32() ? "Windows" : "Linux") +
           R"( PC","DeviceFamily":"Computer",)"
           R"("SerialNumber":"","NICs":[)" +
           nics + R"(],"Products":[]})" + (source == nullptr ? "" : R"(,"SourceNIC":)" + source->Json()) + "}";
}

std::string Request(const std::string& type, const std::string& broadcast, const std::string& more)
{
    return R"({"DiscoveryMessageType":")" + type + R"(","DiscoveryVersion":"1.0.23","Broadcast":")" + broadcast + "\"" +
           more + "}";
}

void LanTest::SetUp()
{
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    for (const auto& [name, reason] : LeftOutOnWin32)
    {
        if (IsWin32() && test.starts_with(name))
        {
            GTEST_SKIP() << reason;
        }
    }
    if (IsWin32() && !Win32Host::IsBuilt())
    {
        GTEST_SKIP() << "no Win32 client is built, or there is no root with Wine";
    }
    office = std::make_unique<NetworkNamespace>();
    Connect(lan0, *office, "wall0");
    station = std::make_unique<Station>(*office);
}

void LanTest::MakeHost()
{
    folders = IsWin32() ? std::make_unique<const Win32Host>(host) : std::make_unique<const HostFolders>();
}

void LanTest::Connect(const Adapter& adapter, const NetworkNamespace& far, const std::string& farName)
{
    const std::string farAddress = adapter.address.substr(0, adapter.address.size() - 1) + "1/24";
    Shell("ip link add " + adapter.name + " address " + adapter.mac + " type veth peer name " + farName + " netns " +
          far.Path());
    far.Ip("link set " + farName + " up");
    far.Ip("addr add " + farAddress + " dev " + farName);
    Shell("ip link set " + adapter.name + " up; ip addr add " + adapter.address + "/24 dev " + adapter.name);
}

void LanTest::StartClient()
{
    if (folders == nullptr)
    {
        MakeHost();
    }
    client = std::make_unique<ClientProcess>(*folders);
}

void LanTest::StartAndHearHello()
{
    StartClient();
    ASSERT_TRUE(station->HearWith(R"("Hello")", 10000)) << client->Log();
    ASSERT_TRUE(client->WaitForLog("---Waiting for IP changes...")) << client->Log();
}

void LanTest::ExpectHeard(const std::string& text, const std::string& destination, const std::string& source) const
{
    const std::optional<Heard> heard = station->Hear(10000);
    ASSERT_TRUE(heard) << client->Log();
    EXPECT_EQ(text, heard->text) << client->Log();
    EXPECT_EQ(source + ":12000", heard->sender);
    EXPECT_EQ(destination, heard->destination);
}

void LanTest::ExpectCleanStop(bool withBye)
{
    client->Signal(SIGTERM);
    EXPECT_EQ(0, client->ExitCode(StopLimit())) << client->Log();
    if (withBye)
    {
        EXPECT_TRUE(station->HearWith(R"("Bye")", 500)) << client->Log();
    }
}
} // namespace Lan
