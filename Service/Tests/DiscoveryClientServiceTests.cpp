#include "PlatformFake.h"

#include <Discovery/Gateway/Tests/NetworkNamespace.h>
#include <Discovery/Protocol/DiscoveryLogger.h>
#include <Service/DiscoveryClientService.h>
#include <Tests/Support/HostFolders.h>
#include <gtest/gtest.h>

using Zelkor::Discovery::DiscoveryLogger;
using Zelkor::Discovery::Client::DiscoveryClientService;

namespace
{
using Rows = std::vector<std::vector<std::uint32_t>>;

const std::vector<std::uint32_t> Entry = {16, 2, 0, 0, 0, 0, 0};
const std::vector<std::uint32_t> Started = {16, 4, 5, 0, 0, 0, 0};
const std::vector<std::uint32_t> Stopping = {16, 3, 0, 0, 0, 4, 0};
const std::vector<std::uint32_t> Stopped = {16, 1, 0, 0, 0, 3, 0};

/// The real client runs in these tests, so they have a network of their own.
class DiscoveryClientServiceTests : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!network.IsEntered())
        {
            GTEST_SKIP() << "the system refuses network namespaces";
        }
        control = ServiceControlFake();
        control.whileWaits = [] { control.handler(1); };
        logRoot = folders.LogFile().parent_path().parent_path().parent_path();
    }

    void TearDown() override
    {
        if (DiscoveryLogger::Instance().IsOpen())
        {
            DiscoveryLogger::Instance().Close(); // the service leaves it open
        }
    }

    HostFolders folders;

private:
    NetworkNamespace network;
};
} // namespace

TEST_F(DiscoveryClientServiceTests, StopAndShutdownTakeTheSameRoad)
{
    for (const std::uint32_t code : {1u, 5u})
    {
        SCOPED_TRACE(code);
        control = ServiceControlFake();
        control.whileWaits = [code] { control.handler(code); };

        EXPECT_EQ(0, DiscoveryClientService::Run());

        EXPECT_EQ((Rows{Entry, Started, Stopping, Stopped}), control.reports);
        EXPECT_EQ(1, control.stopEventSet);
        EXPECT_TRUE(control.stopEventClosed);
        EXPECT_TRUE(control.debugTexts.empty());
    }
}

TEST_F(DiscoveryClientServiceTests, OnlyTheFirstStopOfARunningServiceCounts)
{
    control.onReport = []
    {
        if (control.reports.size() == 1 || control.reports.size() >= 3)
        {
            control.handler(1); // while it starts, while it stops, when it has stopped
        }
    };
    control.whileWaits = []
    {
        for (const std::uint32_t code : {0u, 2u, 3u, 4u, 6u, 128u})
        {
            control.handler(code);
        }
        EXPECT_EQ(2u, control.reports.size());
        control.handler(5);
        control.handler(1);
    };

    DiscoveryClientService::Run();

    EXPECT_EQ((Rows{Entry, Started, Stopping, Stopped}), control.reports);
    EXPECT_EQ(1, control.stopEventSet);
}

TEST_F(DiscoveryClientServiceTests, ARefusedHandlerOrEventEndsTheServiceBeforeTheClient)
{
    control.eventError = 1450;
    DiscoveryClientService::Run();
    EXPECT_EQ((Rows{Entry, {16, 1, 0, 1450, 0, 1, 0}}), control.reports);

    control = ServiceControlFake();
    control.refusesHandler = true;
    DiscoveryClientService::Run();
    EXPECT_TRUE(control.reports.empty());
    EXPECT_FALSE(std::filesystem::exists(folders.LogFile()));
}

TEST_F(DiscoveryClientServiceTests, AFailedReportIsToldToTheDebuggerAndTheRunGoesOn)
{
    control.reportError = 6;

    DiscoveryClientService::Run();

    EXPECT_EQ((Rows{Entry, Started, Stopping, Stopped}), control.reports);
    EXPECT_EQ(
        std::vector<std::string>(4, "DiscoveryClientService : ServiceEntryPoint : SetServiceStatus returned an error"),
        control.debugTexts);
}
