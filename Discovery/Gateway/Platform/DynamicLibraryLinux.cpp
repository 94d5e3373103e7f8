#include "DynamicLibrary.h"

#include <dlfcn.h>
#include <link.h>
#include <mutex>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

/// One load or unload at a time. The loader locks too, but the thread sanitizer can't see its lock.
std::mutex loading;

} // namespace

const char* const LibraryExtension = ".so";

Library OpenLibrary(const std::string& path)
{
    const std::lock_guard guard(loading);
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

LibraryFunction FindFunction(Library library, const char* name)
{
    void* const address = dlsym(library, name); // looks in the libraries that this one needs, too
    link_map* own = nullptr;
    link_map* owner = nullptr;
    Dl_info place;
    if (address == nullptr || dlinfo(library, RTLD_DI_LINKMAP, &own) != 0 ||
        dladdr1(address, &place, reinterpret_cast<void**>(&owner), RTLD_DL_LINKMAP) == 0 || owner != own)
    {
        return nullptr;
    }
    return reinterpret_cast<LibraryFunction>(address);
}

LibraryCost CloseLibrary(Library library)
{
    const std::lock_guard guard(loading);
    dlclose(library);
    return LibraryCost::Nothing;
}

void UnloadReplacedLibraries() {}

std::string LastLibraryError()
{
    const char* const text = dlerror();
    return text != nullptr ? text : "the function is exported by a library that this one needs";
}

} // namespace Zelkor::Discovery::Client::Platform
