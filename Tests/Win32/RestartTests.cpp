#include "ReplacedImport.h"

#include <Discovery/Gateway/Platform/HostName.h>
#include <Discovery/Gateway/Platform/Reboot.h>
#include <gtest/gtest.h>
#include <numeric>
#include <sstream>
#include <windows.h>

using namespace Zelkor::Discovery::Client::Platform;

namespace
{
std::wstring calls;       // what the system was asked for, each in a line
std::wstring failingCall; // the name of one that doesn't work

template <typename... Arguments>
BOOL Call(const wchar_t* name, const Arguments&... arguments)
{
    std::wostringstream line;
    line << name;
    ((line << L' ' << arguments), ...);
    calls += line.str() + L"\n";
    SetLastError(name == failingCall ? ERROR_ACCESS_DENIED : NO_ERROR);
    return name != failingCall;
}

BOOL WINAPI SetName(COMPUTER_NAME_FORMAT type, LPCWSTR name)
{
    return Call(L"name", type, name);
}

BOOL WINAPI OpenToken(HANDLE process, DWORD access, HANDLE* token)
{
    *token = GetCurrentThread();
    return Call(L"token", process == GetCurrentProcess(), access);
}

BOOL WINAPI LookUp(LPCWSTR system, LPCWSTR name, LUID* id)
{
    id->LowPart = 19;
    return Call(L"privilege", system == nullptr, name);
}

BOOL WINAPI Adjust(HANDLE token, BOOL disableAll, TOKEN_PRIVILEGES* state, DWORD, TOKEN_PRIVILEGES*, DWORD*)
{
    const LUID_AND_ATTRIBUTES& first = state->Privileges[0];
    Call(L"adjust", token == GetCurrentThread(), disableAll, state->PrivilegeCount, first.Luid.LowPart,
         first.Attributes);
    return TRUE; // even when it could not give the privilege
}

BOOL WINAPI Restart(LPWSTR machine, LPWSTR message, DWORD seconds, BOOL force, BOOL again, DWORD reason)
{
    return Call(L"restart", machine == nullptr, seconds, force, again, reason, message);
}
} // namespace

REPLACE_IMPORT(SetComputerNameExW, 8, SetName);
REPLACE_IMPORT(OpenProcessToken, 12, OpenToken);
REPLACE_IMPORT(LookupPrivilegeValueW, 12, LookUp);
REPLACE_IMPORT(AdjustTokenPrivileges, 24, Adjust);
REPLACE_IMPORT(InitiateSystemShutdownExW, 24, Restart);

TEST(RestartTests, ANewNameIsSetAndTheHostRestartsAfterATimeUnlessACallFails)
{
    const std::wstring all[] = {
        L"name 5 B\u00DCRO\n", L"token 1 40\n", L"privilege 1 SeShutdownPrivilege\n", L"adjust 1 0 1 19 2\n",
        L"restart 1 30 1 1 4 A remote Zelkor administration application has just changed some settings which need a "
        L"Windows restart. The restart will be initiated in 30 seconds, please save and close your applications "
        L"properly.\n"};
    using Row = std::tuple<const wchar_t*, int, bool>; // with the number of calls
    for (const auto& [failing, count, works] :
         {Row{L"none", 5, true}, Row{L"name", 1, false}, Row{L"token", 2, false}, Row{L"privilege", 5, true},
          Row{L"adjust", 4, false}, Row{L"restart", 5, false}})
    {
        failingCall = failing;
        calls.clear();
        const int error = WriteHostName("B\xDCRO");
        EXPECT_EQ(works ? NO_ERROR : ERROR_ACCESS_DENIED, error != 0 ? error : RequestReboot(30));
        EXPECT_EQ(std::accumulate(all, all + count, std::wstring()), calls);
    }
}
