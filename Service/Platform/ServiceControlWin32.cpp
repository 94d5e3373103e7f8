#include "ServiceControl.h"

#include <winsock2.h>

#include <windows.h>

#include <array>
#include <cstdlib>
#include <string>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr WORD WinsockVersion = 514; // 2.2

/// Winsock is open from before main until the process exits.
[[maybe_unused]] const int winsockResult = []
{
    WSADATA data = {};
    const int result = WSAStartup(WinsockVersion, &data);
    std::atexit([] { WSACleanup(); });
    return result;
}();

void (*serviceEntry)() = nullptr;
void (*controlHandler)(std::uint32_t) = nullptr;
SERVICE_STATUS_HANDLE statusHandle = nullptr;
HANDLE stopEvent = INVALID_HANDLE_VALUE;
HANDLE entryEnded = nullptr;

void WINAPI ServiceEntry(DWORD, LPWSTR*) noexcept
{
    serviceEntry();
    SetEvent(entryEnded);
}

void WINAPI ControlHandler(DWORD control) noexcept
{
    controlHandler(control);
}

std::wstring Widen(const char* text)
{
    const std::string narrow(text);
    return std::wstring(narrow.begin(), narrow.end());
}

} // namespace

int RunService(const char* name, void (*entry)())
{
    serviceEntry = entry;
    entryEnded = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    if (entryEnded == nullptr)
    {
        return static_cast<int>(GetLastError());
    }
    std::wstring wideName = Widen(name);
    const std::array<SERVICE_TABLE_ENTRYW, 2> table = {{{wideName.data(), ServiceEntry}, {nullptr, nullptr}}};
    if (StartServiceCtrlDispatcherW(table.data()) == 0)
    {
        return static_cast<int>(GetLastError());
    }
    WaitForSingleObject(entryEnded, INFINITE); // the dispatcher may return as soon as the stopped state is reported
    return 0;
}

bool RegisterControlHandler(const char* name, void (*handler)(std::uint32_t control))
{
    controlHandler = handler;
    statusHandle = RegisterServiceCtrlHandlerW(Widen(name).c_str(), ControlHandler);
    return statusHandle != nullptr;
}

int ReportServiceStatus(const ServiceStatus& status)
{
    SERVICE_STATUS record = {status.serviceType,
                             status.currentState,
                             status.controlsAccepted,
                             status.exitCode,
                             status.serviceSpecificExitCode,
                             status.checkPoint,
                             status.waitHint};
    return SetServiceStatus(statusHandle, &record) != 0 ? 0 : static_cast<int>(GetLastError());
}

int CreateStopEvent()
{
    stopEvent = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return stopEvent != nullptr ? 0 : static_cast<int>(GetLastError());
}

void SetStopEvent()
{
    SetEvent(stopEvent);
}

void WaitForStopEvent()
{
    WaitForSingleObject(stopEvent, INFINITE);
}

void CloseStopEvent()
{
    CloseHandle(stopEvent);
}

void WriteDebugText(const char* text)
{
    OutputDebugStringW(Widen(text).c_str());
}

} // namespace Zelkor::Discovery::Client::Platform
