#include "DiscoveryClientService.h"

#include "Platform/LogRoot.h"
#include "Platform/ServiceControl.h"

#include <Core/System/IO/Path.h>
#include <Core/System/Sp.h>
#include <Discovery/Client/DiscoveryClient.h>
#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Discovery/Log/DiscoveryLogger.h>

#include <mutex>

namespace Zelkor::Discovery::Client
{
using Tesmo::Sp, Tesmo::System::String, Tesmo::System::IO::Path, Tesmo::System::LogStreams::LogStreamLevel;

namespace
{
constexpr const char* serviceName = "DiscoveryClient";

/// The one status record: the entry point and the handler change it as a whole, on threads of their own.
Platform::ServiceStatus serviceStatus = {};
std::mutex statusLock; // decision 174

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

bool IsRunning()
{
    const std::lock_guard lock(statusLock);
    return serviceStatus.currentState == Platform::ServiceRunning;
}

void Report(const Platform::ServiceStatus& status)
{
    {
        const std::lock_guard lock(statusLock);
        serviceStatus = status;
    }
    if (Platform::ReportServiceStatus(status) != 0) // without the lock: a control may come in meanwhile
    {
        Platform::WriteDebugText("DiscoveryClientService : ServiceEntryPoint : SetServiceStatus returned an error");
    }
}
} // namespace

int DiscoveryClientService::Run()
{
    return Platform::RunService(serviceName, ServiceEntryPoint);
}

void DiscoveryClientService::HandleControl(std::uint32_t control)
{
    const bool isStop = control == Platform::ControlStop || control == Platform::ControlShutdown;
    if (isStop && IsRunning())
    {
        Report(StopRequested);
        Platform::SetStopEvent();
    }
}

void DiscoveryClientService::ServiceEntryPoint()
{
    if (!Platform::RegisterControlHandler(serviceName, HandleControl))
    {
        return;
    }
    Report(Entry);
    if (const int error = Platform::CreateStopEvent(); error != 0)
    {
        Report(NoStopEvent(error));
        return;
    }
    const String logPath = LogPath();
    DiscoveryLogger::Instance().Open(logPath, LogStreamLevel::Standard); // decision 176
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
