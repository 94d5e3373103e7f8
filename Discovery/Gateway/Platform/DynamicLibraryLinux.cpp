#include "DynamicLibrary.h"

#include <dlfcn.h>
#include <mutex>

namespace Zelkor::Discovery::Platform
{

namespace
{

/// One load or unload at a time. The loader sees to that itself, but by a lock that the thread sanitizer doesn't know.
std::mutex loading;

} // namespace

const char* const LibraryPattern = "*.so";

Library OpenLibrary(const std::string& path)
{
    const std::lock_guard guard(loading);
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

LibraryFunction FindFunction(Library library, const char* name)
{
    return reinterpret_cast<LibraryFunction>(dlsym(library, name));
}

void CloseLibrary(Library library)
{
    const std::lock_guard guard(loading);
    dlclose(library);
}

std::string LastLibraryError()
{
    const char* const text = dlerror();
    return text != nullptr ? text : "";
}

} // namespace Zelkor::Discovery::Platform
