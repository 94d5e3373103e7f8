#include "LanTest.h"

#include <csignal>
#include <fstream>

namespace Lan
{
using AnnouncementTests = LanTest;

TEST_F(AnnouncementTests, AHostAnnouncesItselfByteForByteWithAndWithoutADefaultRoute)
{
    Adapter adapter = lan0;
    for (const char* const gateway : {"", "10.77.0.1"})
    {
        SCOPED_TRACE(gateway);
        adapter.gateway = IsWin32() ? "" : gateway; // Wine tells of none
        StartClient();
        ExpectHeard(Announcement("Hello", "True", {adapter}, &adapter));
        station->Say(Request("AllSendYourSignature", "True"), "255.255.255.255", "wall0");
        ExpectHeard(Announcement("SignatureBroadcast", "True", {adapter}, &adapter));
        station->Say(Request("SendYourSignature", "False"), "10.77.0.2");
        ExpectHeard(Announcement("SignatureBroadcast", "False", {adapter}, &adapter), "10.77.0.1");
        client->Signal(SIGTERM);
        ExpectHeard(Announcement("Bye", "True", {adapter}, &adapter));
        EXPECT_EQ(0, client->ExitCode(StopLimit()));
        Shell("ip route replace default via 10.77.0.1");
    }
}

TEST_F(AnnouncementTests, AClientWithoutAdapterStopsWithoutAWord)
{
    Shell("ip link del lan0");
    StartClient();
    ASSERT_TRUE(client->WaitForLog("SendHelloMessage aborted", 1, 10000)) << client->Log();
    ASSERT_TRUE(client->WaitForLog("---Waiting for IP changes..."));
    ExpectCleanStop(false);
    EXPECT_EQ(1, client->Logged("SendByeMessage aborted"));
}

TEST_F(AnnouncementTests, AClientSpeaksWhenItGetsItsFirstAdapter)
{
    Shell("ip link del lan0");
    StartClient();
    ASSERT_TRUE(client->WaitForLog("---Waiting for IP changes...")) << client->Log();
    Connect(lan0, *office, "wall0");
    ExpectHeard(Announcement("SignatureBroadcast", "True", {lan0}, &lan0));
    ExpectCleanStop();
}

TEST_F(AnnouncementTests, WhatIsInstalledIsShown)
{
    MakeHost();
    const bool isWin32 = IsWin32(); // its linker refuses what another platform's loader has to
    const std::filesystem::path built = isWin32 ? WIN32_PRODUCT_PLUGINS : PRODUCT_PLUGINS;
    for (const char* const plugin :
         {isWin32 ? "StorePlugin.dll" : "StorePlugin.so", isWin32 ? "NoEntryPointPlugin.dll" : "UnresolvedPlugin.so"})
    {
        std::filesystem::copy_file(built / plugin, folders->Discovery() / "ProductIDs" / plugin);
    }
    std::ofstream(folders->Discovery() / "FileTransferInfos.json") << "{\r\n  \"Server\": \"10.0.0.5\"\r\n}\r\n";
    StartClient();

    std::string text = Announcement("Hello", "True", {lan0}, &lan0);
    ExpectHeard(text.replace(text.find("[]}"), 3,
                             R"([{"ProductType":"Server","ProductSerialNumber":"88","ProductVersion":"2.1",)"
                             "\"ProductName\":\"St\x94re, with a name that is longer than what a text keeps within "
                             R"(itself"}],"FileTransferInfos":{"Server":"10.0.0.5"}})"));
    EXPECT_EQ(2, client->Logged(isWin32 ? "|GetLastError : 127" : "UnresolvedPlugin.so: undefined symbol: Missing"))
        << "a hello takes two snapshots";
    ExpectCleanStop();
}
} // namespace Lan
