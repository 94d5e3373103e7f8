#include "HostName.h"

#include <windows.h>

#include <algorithm>

namespace Zelkor::Discovery::Platform
{

int ReadHostName(char (&name)[HostNameSize])
{
    wchar_t wide[HostNameSize] = {};
    DWORD length = HostNameSize;
    if (GetComputerNameExW(ComputerNamePhysicalDnsHostname, wide, &length) == 0)
    {
        return static_cast<int>(GetLastError());
    }
    // The low byte of each unit, without a code page.
    std::transform(wide, wide + length + 1, name, [](wchar_t unit) { return static_cast<char>(unit); });
    return 0;
}

} // namespace Zelkor::Discovery::Platform
