#include <windows.h>

#include <cstdio>
#include <cstdlib>

/// Sends a control to the service DiscoveryClient and waits some milliseconds for the end of its process. Tells the
/// manager's code, the exit code of the process or 259 (STILL_ACTIVE), and its first free handle before.
int main(int, char** arguments)
{
    const SC_HANDLE manager = OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CONNECT);
    const SC_HANDLE service = OpenServiceW(manager, L"DiscoveryClient", SERVICE_ALL_ACCESS);
    SERVICE_STATUS_PROCESS status = {};
    DWORD code = 0;
    QueryServiceStatusEx(service, SC_STATUS_PROCESS_INFO, reinterpret_cast<BYTE*>(&status), sizeof(status), &code);
    HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, status.dwProcessId);
    HANDLE free = nullptr;
    DuplicateHandle(GetCurrentProcess(), process, process, &free, 0, FALSE, DUPLICATE_SAME_ACCESS);
    DuplicateHandle(process, free, GetCurrentProcess(), &process, PROCESS_ALL_ACCESS, FALSE, DUPLICATE_CLOSE_SOURCE);
    SERVICE_STATUS answer = {};
    const BOOL sent = ControlService(service, static_cast<DWORD>(std::atoi(arguments[1])), &answer);
    const DWORD error = sent != 0 ? NO_ERROR : GetLastError();
    WaitForSingleObject(process, static_cast<DWORD>(std::atoi(arguments[2])));
    GetExitCodeProcess(process, &code);
    std::printf("%lu %lu %p\n", error, code, free);
}
