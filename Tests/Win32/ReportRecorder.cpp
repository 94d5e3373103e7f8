#include "ReplacedImport.h"

#include <windows.h>

#include <filesystem>
#include <fstream>

// Writes down what the service and the manager tell each other, and hands it on. Control 133 becomes 5, which no program
// may send. The file C:\service.fails names a call that fails.

namespace
{
template <typename Function>
Function HostsOwn(Function, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"advapi32"), name)));
}

bool Fails(const char* operation)
{
    std::string failing;
    std::ifstream("C:\\service.fails") >> failing;
    SetLastError(ERROR_NO_SYSTEM_RESOURCES);
    return failing == operation;
}

std::ofstream Told()
{
    return std::ofstream("C:\\service.told", std::ios::app | std::ios::binary);
}

LPHANDLER_FUNCTION serviceHandler = nullptr;

void WINAPI Handle(DWORD control)
{
    serviceHandler(control == 133 ? SERVICE_CONTROL_SHUTDOWN : control);
}

SERVICE_STATUS_HANDLE WINAPI Register(LPCWSTR name, LPHANDLER_FUNCTION handler)
{
    serviceHandler = handler;
    Told() << (std::wstring(L"DiscoveryClient") == name ? "registered\n" : "registered by a wrong name\n");
    return Fails("handler") ? nullptr
                            : HostsOwn(&RegisterServiceCtrlHandlerW, "RegisterServiceCtrlHandlerW")(name, Handle);
}

BOOL WINAPI Report(SERVICE_STATUS_HANDLE handle, SERVICE_STATUS* status)
{
    const BOOL result = HostsOwn(&SetServiceStatus, "SetServiceStatus")(handle, status);
    Sleep(status->dwCurrentState == SERVICE_STOPPED ? 200 : 0); // the process has to wait for the end of its service
    Told() << status->dwServiceType << ' ' << status->dwCurrentState << ' ' << status->dwControlsAccepted << ' '
           << status->dwWin32ExitCode << ' ' << status->dwServiceSpecificExitCode << ' ' << status->dwCheckPoint << ' '
           << status->dwWaitHint << '\n';
    return Fails("report") ? FALSE : result;
}

HANDLE WINAPI NewEvent(SECURITY_ATTRIBUTES* security, BOOL stays, BOOL set, LPCWSTR name)
{
    const bool fails = serviceHandler != nullptr && Fails("event"); // the stop event is the first after that
    return fails ? nullptr : CreateEventExW(security, name, static_cast<DWORD>(stays | set << 1), EVENT_ALL_ACCESS);
}

void WINAPI Debug(LPCWSTR text)
{
    Told() << std::filesystem::path(text).string() << '\n';
}
} // namespace

REPLACE_IMPORT(RegisterServiceCtrlHandlerW, 8, Register);
REPLACE_IMPORT(SetServiceStatus, 8, Report);
REPLACE_IMPORT(CreateEventW, 16, NewEvent);
REPLACE_IMPORT(OutputDebugStringW, 4, Debug);
