#include "HostSystem.h"

#include <windows.h>

namespace Tesmo::Platform
{
namespace
{
using RtlGetVersionFunction = LONG(WINAPI*)(OSVERSIONINFOW*);
}

HostSystem ReadHostSystem()
{
    // GetVersionEx gives the version that the program's manifest names, RtlGetVersion the real one.
    const FARPROC address = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    OSVERSIONINFOW info{};
    info.dwOSVersionInfoSize = sizeof(info);
    if (address != nullptr)
    {
        reinterpret_cast<RtlGetVersionFunction>(reinterpret_cast<void*>(address))(&info);
    }
    return {2, static_cast<int>(info.dwMajorVersion), static_cast<int>(info.dwMinorVersion),
            static_cast<int>(info.dwBuildNumber)};
}
} // namespace Tesmo::Platform
