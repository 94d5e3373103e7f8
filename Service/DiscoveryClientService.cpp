#include "DiscoveryClientService.h"

#include "Platform/LogRoot.h"
#include "Platform/ServiceControl.h"

#include <Core/System/IO/Path.h>
#include <Core/System/Sp.h>
#include <Discovery/Client/DiscoveryClient.h>
#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Discovery/Log/DiscoveryLogger.h>

#include <atomic>

namespace Zelkor::Discovery::Client
{
using Tesmo::Sp, Tesmo::System::String, Tesmo::System::IO::Path, Tesmo::System::LogStreams::LogStreamLevel;

namespace
{
constexpr const char* ServiceName = "DiscoveryClient";

// The reports in the order of a run. The check points are fixed: they don't rise, and the wait hint stays 0.
constexpr Platform::ServiceStatus Entry = {
    Platform::ServiceOwnProcess, Platform::ServiceStartPending, Platform::AcceptNothing, 0, 0, 0, 0};
constexpr Platform::ServiceStatus ClientStarted = {
    Platform::ServiceOwnProcess, Platform::ServiceRunning, Platform::AcceptStopAndShutdown, 0, 0, 0, 0};
constexpr Platform::ServiceStatus StopRequested = {
    Platform::ServiceOwnProcess, Platform::ServiceStopPending, Platform::AcceptNothing, 0, 0, 4, 0};
constexpr Platform::ServiceStatus ClientStopped = {
    Platform::ServiceOwnProcess, Platform::ServiceStopped, Platform::AcceptNothing, 0, 0, 3, 0};

constexpr Platform::ServiceStatus NoStopEvent(int error)
{
    return {Platform::ServiceOwnProcess,
            Platform::ServiceStopped,
            Platform::AcceptNothing,
            static_cast<std::uint32_t>(error),
            0,
            1,
            0};
}

String LogPath()
{
    String path(Platform::LogRoot());
    for (const char* const name : {"Discovery", "DiscoveryClient", "DiscoveryClient.log"})
    {
        path = Path::Combine(path, name);
    }
    return path;
}

/// The state last reported, 0 before the first report: written by the entry point and, while it waits, by the handler.
std::atomic<std::uint32_t> currentState = 0;

void Report(const Platform::ServiceStatus& status)
{
    currentState = status.currentState;
    if (Platform::ReportServiceStatus(status) != 0)
    {
        Platform::WriteDebugText("DiscoveryClientService : ServiceEntryPoint : SetServiceStatus returned an error");
    }
}
} // namespace

int DiscoveryClientService::Run()
{
    return Platform::RunService(ServiceName, ServiceEntryPoint);
}

void DiscoveryClientService::HandleControl(std::uint32_t control)
{
    const bool isStop = control == Platform::ControlStop || control == Platform::ControlShutdown;
    if (isStop && currentState == Platform::ServiceRunning)
    {
        Report(StopRequested);
        Platform::SetStopEvent();
    }
}

void DiscoveryClientService::ServiceEntryPoint()
{
    if (!Platform::RegisterControlHandler(ServiceName, HandleControl))
    {
        return;
    }
    Report(Entry);
    if (const int error = Platform::CreateStopEvent(); error != 0)
    {
        Report(NoStopEvent(error));
        return;
    }
    DiscoveryLogger::Instance().Open(LogPath(), LogStreamLevel::Standard); // decision 176
    Sp<DiscoveryClientDataGatewayW32> gateway(new DiscoveryClientDataGatewayW32());
    Sp<DiscoveryClient> client(new DiscoveryClient(gateway));
    client->Start();
    Report(ClientStarted);
    Platform::WaitForStopEvent();
    client->Stop();
    Platform::CloseStopEvent();
    Report(ClientStopped);
    client.Reset(nullptr);
    gateway.Reset(nullptr);
}
} // namespace Zelkor::Discovery::Client
