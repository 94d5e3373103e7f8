#include "DynamicLibrary.h"

#include <windows.h>

#include <array>
#include <map>
#include <memory>
#include <mutex>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

/// So many times a library has to leave an index behind before it counts as one that always does: its first question may
/// bring libraries of the system into the process, which stay and keep theirs.
constexpr int Proof = 2;

/// Which file it is and when it was written; zeros where there is none.
using FileIdentity = std::array<DWORD, 7>;

/// A file whose library has left indexes behind.
struct LeakingFile
{
    FileIdentity identity;
    int leaks = 0;
    HMODULE loaded = nullptr; ///< left loaded
};

struct OpenedLibrary
{
    HMODULE module;
    std::string path;
    FileIdentity identity;
};

/// One load or unload at a time, and what follows here.
std::mutex loading;
std::map<std::string, LeakingFile> leakingFiles; // by path
int opened = 0;
bool isAlone = false; // the last library was opened while no other was
DWORD freeBefore = 0; // the first free index then, if so

/// The lowest free thread-local index, which is the one that is given next.
DWORD FirstFreeIndex()
{
    const DWORD index = TlsAlloc();
    TlsFree(index);
    return index;
}

FileIdentity Identify(const std::string& path)
{
    BY_HANDLE_FILE_INFORMATION found = {};
    const HANDLE file =
        CreateFileA(path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE)
    {
        GetFileInformationByHandle(file, &found);
        CloseHandle(file);
    }
    return {found.dwVolumeSerialNumber,
            found.nFileIndexHigh,
            found.nFileIndexLow,
            found.nFileSizeHigh,
            found.nFileSizeLow,
            found.ftLastWriteTime.dwHighDateTime,
            found.ftLastWriteTime.dwLowDateTime};
}

/// Unloads, and counts what that leaves behind.
LibraryCost Unload(const OpenedLibrary& library)
{
    FreeLibrary(library.module);
    if (--opened > 0 || !isAlone || FirstFreeIndex() <= freeBefore)
    {
        return LibraryCost::Nothing;
    }
    LeakingFile& file = leakingFiles.try_emplace(library.path, LeakingFile{library.identity}).first->second;
    return ++file.leaks == Proof ? LibraryCost::ThreadLocalIndexes : LibraryCost::Nothing;
}

} // namespace

const char* const LibraryExtension = ".dll";

Library OpenLibrary(const std::string& path)
{
    // A broken file shall fail, not open a message box that a service can't show and would wait for.
    DWORD previousMode = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &previousMode);
    DWORD error = 0;
    OpenedLibrary* library = nullptr;
    {
        const std::lock_guard guard(loading);
        isAlone = opened == 0;
        freeBefore = isAlone ? FirstFreeIndex() : 0;
        const FileIdentity identity = Identify(path);
        const HMODULE module = LoadLibraryA(path.c_str());
        error = GetLastError();
        if (module != nullptr)
        {
            ++opened;
            library = new OpenedLibrary{module, path, identity};
        }
    }
    SetThreadErrorMode(previousMode, nullptr);
    SetLastError(error);
    return library;
}

LibraryFunction FindFunction(Library library, const char* name)
{
    return reinterpret_cast<LibraryFunction>(GetProcAddress(static_cast<OpenedLibrary*>(library)->module, name));
}

LibraryCost CloseLibrary(Library library)
{
    const std::unique_ptr<OpenedLibrary> closing(static_cast<OpenedLibrary*>(library));
    const std::lock_guard guard(loading);
    const auto leaking = leakingFiles.find(closing->path);
    if (leaking != leakingFiles.end() && leaking->second.leaks >= Proof && leaking->second.loaded == nullptr)
    {
        leaking->second.loaded = closing->module;
        --opened;
        return LibraryCost::Nothing;
    }
    return Unload(*closing);
}

void UnloadReplacedLibraries()
{
    const std::lock_guard guard(loading);
    if (opened > 0)
    {
        return;
    }
    std::erase_if(leakingFiles,
                  [](const auto& entry)
                  {
                      const auto& [path, file] = entry;
                      const bool isReplaced = Identify(path) != file.identity;
                      if (isReplaced && file.loaded != nullptr)
                      {
                          FreeLibrary(file.loaded);
                      }
                      return isReplaced;
                  });
}

std::string LastLibraryError()
{
    return std::to_string(GetLastError());
}

} // namespace Zelkor::Discovery::Client::Platform
