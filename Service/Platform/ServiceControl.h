#pragma once

#include <cstdint>

/// The host's control of this service: the service control manager on Win32, signals and the notification socket of
/// systemd on Linux. One service in the process.
namespace Zelkor::Discovery::Client::Platform
{

/// One report to the control manager, in the units of winsvc.h: SERVICE_STATUS.
struct ServiceStatus
{
    std::uint32_t serviceType;
    std::uint32_t currentState;
    std::uint32_t controlsAccepted;
    std::uint32_t exitCode;
    std::uint32_t serviceSpecificExitCode;
    std::uint32_t checkPoint;
    std::uint32_t waitHint; ///< milliseconds
};

constexpr std::uint32_t ServiceOwnProcess = 16; ///< winnt.h: SERVICE_WIN32_OWN_PROCESS

constexpr std::uint32_t ServiceStopped = 1;      ///< winsvc.h: SERVICE_STOPPED
constexpr std::uint32_t ServiceStartPending = 2; ///< winsvc.h: SERVICE_START_PENDING
constexpr std::uint32_t ServiceStopPending = 3;  ///< winsvc.h: SERVICE_STOP_PENDING
constexpr std::uint32_t ServiceRunning = 4;      ///< winsvc.h: SERVICE_RUNNING

constexpr std::uint32_t AcceptNothing = 0;
constexpr std::uint32_t AcceptStopAndShutdown = 5; ///< winsvc.h: SERVICE_ACCEPT_STOP + SERVICE_ACCEPT_SHUTDOWN

constexpr std::uint32_t ControlStop = 1;     ///< winsvc.h: SERVICE_CONTROL_STOP
constexpr std::uint32_t ControlShutdown = 5; ///< winsvc.h: SERVICE_CONTROL_SHUTDOWN

/// Connects the process to the control manager and runs entry on a thread of its own; the calling thread delivers the
/// controls meanwhile. Called by the main thread, before any other thread exists. Returns when entry has returned; an
/// exception out of entry ends the process.
/// Linux: SIGTERM and SIGINT are the stop control; one that comes while no control is accepted waits until one is.
/// SIGPIPE is ignored.
/// @param name  the service's name, in ASCII
/// @returns 0, or the platform's code if there is no control manager to connect to
int RunService(const char* name, void (*entry)());

/// Has controls delivered to handler, on the control manager's thread. Called by entry.
/// @returns false if the control manager refused
bool RegisterControlHandler(const char* name, void (*handler)(std::uint32_t control));

/// Reports status to the control manager; any thread.
/// Linux: ServiceRunning is told as READY=1, ServiceStopPending as STOPPING=1, to NOTIFY_SOCKET if there is one.
/// @returns 0, or the platform's code
int ReportServiceStatus(const ServiceStatus& status);

/// Makes the stop event, not signalled. Called by entry.
/// @returns 0, or the platform's code
int CreateStopEvent();

/// Signals the stop event for good; any thread.
void SetStopEvent();

/// Blocks without limit until the stop event is signalled.
void WaitForStopEvent();

/// Releases the stop event: after the wait, when nobody sets it any more.
void CloseStopEvent();

/// Writes text, in ASCII, where a developer finds it: the debugger on Win32, standard error on Linux.
void WriteDebugText(const char* text);

} // namespace Zelkor::Discovery::Client::Platform
