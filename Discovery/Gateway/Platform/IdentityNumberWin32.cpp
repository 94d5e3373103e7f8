#include "IdentityNumber.h"

#include <windows.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

bool OpenKey(HKEY& key)
{
    for (const wchar_t* path : {L"SOFTWARE\\Wow6432Node\\Zelkor\\Common", L"SOFTWARE\\Zelkor\\Common"})
    {
        if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, KEY_READ, &key) == ERROR_SUCCESS)
        {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<std::uint32_t> ReadIdentityNumber()
{
    HKEY key = nullptr;
    if (!OpenKey(key))
    {
        return std::nullopt;
    }
    std::uint32_t number = 0;
    DWORD size = sizeof(number);
    const LSTATUS result =
        RegQueryValueExW(key, L"global serial number", nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size);
    if (result != ERROR_SUCCESS || number == UINT32_MAX)
    {
        RegCloseKey(key);
        return std::nullopt;
    }
    return number; // the key stays open on this path: required
}

} // namespace Zelkor::Discovery::Client::Platform
