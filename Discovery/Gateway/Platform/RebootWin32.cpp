#include "Reboot.h"

#include <windows.h>

#include <algorithm>
#include <string>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr DWORD MinorReconfiguration = 4; // reason.h: SHTDN_REASON_MINOR_RECONFIG, with the major reason 0

std::wstring Message(int seconds)
{
    return L"A remote Zelkor administration application has just changed some settings which need a Windows restart. "
           L"The restart will be initiated in " +
           std::to_wstring(seconds) + L" seconds, please save and close your applications properly.";
}

/// GetLastError of a failed call, but never 0.
int FailureCode()
{
    return std::max(1, static_cast<int>(GetLastError()));
}

/// @returns 0, or GetLastError. The token stays open until the process ends: the restart ends that.
int EnableShutdownPrivilege()
{
    HANDLE token = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token) == 0)
    {
        return FailureCode();
    }
    TOKEN_PRIVILEGES privileges = {};
    privileges.PrivilegeCount = 1;
    privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &privileges.Privileges[0].Luid);
    AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
    return static_cast<int>(GetLastError()); // the call succeeds even when it could not enable the privilege
}

} // namespace

int RequestReboot(int seconds)
{
    if (const int error = EnableShutdownPrivilege(); error != 0)
    {
        return error;
    }
    std::wstring message = Message(seconds);
    const BOOL done = InitiateSystemShutdownExW(nullptr, message.data(), static_cast<DWORD>(seconds), TRUE, TRUE,
                                                MinorReconfiguration);
    return done == 1 ? 0 : FailureCode();
}

} // namespace Zelkor::Discovery::Client::Platform
