#include "LanTest.h"

#include <csignal>

namespace Lan
{
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
           R"("RebootRequiredForHostNameChange":true,"DeviceType":"Linux PC","DeviceFamily":"Computer",)"
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
    office = std::make_unique<NetworkNamespace>();
    Connect(lan0, *office, "wall0");
    station = std::make_unique<Station>(*office);
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
    client = std::make_unique<ClientProcess>(folders);
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
    EXPECT_EQ(0, client->ExitCode(std::chrono::milliseconds(2000))) << client->Log();
    if (withBye)
    {
        EXPECT_TRUE(station->HearWith(R"("Bye")", 500)) << client->Log();
    }
}
} // namespace Lan
