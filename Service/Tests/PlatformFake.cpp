#include "PlatformFake.h"

#include <Service/Platform/LogRoot.h>

ServiceControlFake control;
std::string logRoot;

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
