#include "DynamicLibrary.h"

#include <windows.h>

namespace Zelkor::Discovery::Client::Platform
{

const char* const LibraryPattern = "*.dll";

Library OpenLibrary(const std::string& path)
{
    // A broken file shall fail, not open a message box that a service can't show and would wait for.
    DWORD previousMode = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &previousMode);
    const HMODULE library = LoadLibraryA(path.c_str());
    const DWORD error = GetLastError();
    SetThreadErrorMode(previousMode, nullptr);
    SetLastError(error);
    return library;
}

LibraryFunction FindFunction(Library library, const char* name)
{
    return reinterpret_cast<LibraryFunction>(GetProcAddress(static_cast<HMODULE>(library), name));
}

void CloseLibrary(Library library)
{
    FreeLibrary(static_cast<HMODULE>(library));
}

std::string LastLibraryError()
{
    return std::to_string(GetLastError());
}

} // namespace Zelkor::Discovery::Client::Platform
