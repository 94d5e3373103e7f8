#include "HostName.h"

#include <windows.h>

#include <algorithm>

namespace Zelkor::Discovery::Client::Platform
{

int ReadHostName(char (&name)[HostNameSize])
{
    wchar_t wide[HostNameSize] = {};
    DWORD length = HostNameSize;
    if (GetComputerNameExW(ComputerNamePhysicalDnsHostname, wide, &length) == 0)
    {
        return std::max(1, static_cast<int>(GetLastError())); // a failure is never told as 0
    }
    // The low byte of each unit, without a code page.
    std::transform(wide, wide + length + 1, name, [](wchar_t unit) { return static_cast<char>(unit); });
    return 0;
}

int WriteHostName(const std::string& name)
{
    const int size = MultiByteToWideChar(CP_ACP, 0, name.c_str(), -1, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, name.c_str(), -1, wide.data(), size);
    const BOOL done = SetComputerNameExW(ComputerNamePhysicalDnsHostname, wide.c_str());
    return done != 0 ? 0 : std::max(1, static_cast<int>(GetLastError()));
}

} // namespace Zelkor::Discovery::Client::Platform
