#include <Discovery/Log/DiscoveryLogger.h>
#include <Service/DiscoveryClientService.h>
#include <Service/Platform/LogRoot.h>
#include <Service/Platform/ServiceControl.h>
#include <Tests/Support/HostFolders.h>
#include <Tests/Support/IsolatedTest.h>

using Zelkor::Discovery::DiscoveryLogger, Zelkor::Discovery::Client::DiscoveryClientService;

namespace
{
using Rows = std::vector<std::vector<std::uint32_t>>;

/// The control manager of these tests: it runs the service on the calling thread and keeps what is reported to it.
struct ServiceControlFake
{
    bool refusesHandler = false;
    int eventError = 0;
    int reportError = 0;
    std::function<void()> onReport = [] {};   ///< runs within each report
    std::function<void()> whileWaits = [] {}; ///< runs while the service waits for its stop event

    void (*handler)(std::uint32_t) = nullptr;
    Rows reports; ///< the fields in their order
    std::vector<std::string> debugTexts;
    int stopEventSet = 0;
    bool stopEventClosed = false;
};

ServiceControlFake control; // the one of the running test
std::string logRoot;        // the folder of the maker's logs in the running test
} // namespace

namespace Zelkor::Discovery::Client::Platform
{
std::string LogRoot()
{
    return logRoot;
}

int RunService(const char*, void (*entry)())
{
    entry();
    return 0;
}

bool RegisterControlHandler(const char*, void (*handler)(std::uint32_t))
{
    control.handler = handler;
    return !control.refusesHandler;
}

int ReportServiceStatus(const ServiceStatus& status)
{
    control.reports.push_back({status.serviceType, status.currentState, status.controlsAccepted, status.exitCode,
                               status.serviceSpecificExitCode, status.checkPoint, status.waitHint});
    control.onReport();
    return control.reportError;
}

int CreateStopEvent()
{
    return control.eventError;
}

void SetStopEvent()
{
    ++control.stopEventSet;
}

void WaitForStopEvent()
{
    control.whileWaits();
}

void CloseStopEvent()
{
    control.stopEventClosed = true;
}

void WriteDebugText(const char* text)
{
    control.debugTexts.emplace_back(text);
}
} // namespace Zelkor::Discovery::Client::Platform

const std::vector<std::uint32_t> Entry = {16, 2, 0, 0, 0, 0, 0};
const std::vector<std::uint32_t> Started = {16, 4, 5, 0, 0, 0, 0};
const std::vector<std::uint32_t> Stopping = {16, 3, 0, 0, 0, 4, 0};
const std::vector<std::uint32_t> Stopped = {16, 1, 0, 0, 0, 3, 0};

/// The real client runs in these tests, so they have a network of their own.
class DiscoveryClientServiceTests : public IsolatedTest<PrivateNetwork>
{
protected:
    void SetUp() override
    {
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
};
TEST_F(DiscoveryClientServiceTests, OnlyTheFirstStopOrShutdownOfARunningServiceCounts)
{
    control.reportError = 6;
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

    EXPECT_EQ(0, DiscoveryClientService::Run());

    EXPECT_EQ((Rows{Entry, Started, Stopping, Stopped}), control.reports);
    EXPECT_EQ(1, control.stopEventSet);
    EXPECT_TRUE(control.stopEventClosed);
    EXPECT_EQ( // and the run goes on
        std::vector<std::string>(4, "DiscoveryClientService : ServiceEntryPoint : SetServiceStatus returned an error"),
        control.debugTexts);
}

TEST_F(DiscoveryClientServiceTests, ARefusedHandlerOrEventEndsTheServiceBeforeTheClient)
{
    control.eventError = 1450;
    DiscoveryClientService::Run();
    EXPECT_EQ((Rows{Entry, {16, 1, 0, 1450, 0, 1, 0}}), control.reports);
    EXPECT_TRUE(control.debugTexts.empty());

    control = ServiceControlFake();
    control.refusesHandler = true;
    DiscoveryClientService::Run();
    EXPECT_TRUE(control.reports.empty());
    EXPECT_FALSE(std::filesystem::exists(folders.LogFile()));
}
