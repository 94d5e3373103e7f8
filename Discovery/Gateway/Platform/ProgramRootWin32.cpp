#include "ProgramRoot.h"

#include <windows.h>

#include <shlobj.h>

#include <string_view>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

std::string ToUtf8(std::wstring_view wide)
{
    const int units = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

} // namespace

std::string ProgramRoot()
{
    wchar_t folder[MAX_PATH] = {};
    if (SHGetSpecialFolderPathW(nullptr, folder, CSIDL_PROGRAM_FILES_COMMONX86, FALSE) != 1)
    {
        return std::string();
    }
    // The separator stays: "C:\Program Files (x86)\Common Files" gives "C:\Program Files (x86)\".
    const std::wstring_view path(folder);
    return ToUtf8(path.substr(0, path.rfind(L'\\') + 1));
}

} // namespace Zelkor::Discovery::Client::Platform
