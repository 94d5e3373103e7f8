#include "StackWalker.h"

#include <windows.h>

#include <cxxabi.h>
#include <dbghelp.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>

namespace Tesmo::Platform
{
namespace
{
using System::Diagnostics::CallStackEntry;

constexpr std::size_t NameSize = 1024; ///< bytes of a symbol's name with the closing zero

/// dbghelp.dll as it was found on this machine. Its functions must not be called by two threads at once.
class SymbolLibrary
{
public:
    SymbolLibrary() : module(Load())
    {
        isMissing = module != nullptr || GetLastError() == ERROR_MOD_NOT_FOUND;
        isComplete = module != nullptr && Find(initialize, "SymInitialize") && Find(cleanup, "SymCleanup") &&
                     Find(getOptions, "SymGetOptions") && Find(setOptions, "SymSetOptions") &&
                     Find(lineFromAddress, "SymGetLineFromAddr64") && Find(symFromAddress, "SymGetSymFromAddr64") &&
                     Find(undecorate, "UnDecorateSymbolName");
    }
    ~SymbolLibrary()
    {
        if (module != nullptr)
        {
            FreeLibrary(module);
        }
    }
    SymbolLibrary(const SymbolLibrary&) = delete;
    SymbolLibrary& operator=(const SymbolLibrary&) = delete;

    bool isComplete;
    bool isMissing; ///< asked if not complete: this machine has no usable library, and will have none
    decltype(&SymInitialize) initialize = nullptr;
    decltype(&SymCleanup) cleanup = nullptr;
    decltype(&SymGetOptions) getOptions = nullptr;
    decltype(&SymSetOptions) setOptions = nullptr;
    decltype(&SymGetLineFromAddr64) lineFromAddress = nullptr;
    decltype(&SymGetSymFromAddr64) symFromAddress = nullptr;
    decltype(&UnDecorateSymbolName) undecorate = nullptr;

private:
    /// Prefers the debugging tools' library, which is newer than the system's.
    static HMODULE Load()
    {
        std::array<wchar_t, MAX_PATH> folder{};
        const DWORD length = GetEnvironmentVariableW(L"ProgramFiles", folder.data(), MAX_PATH);
        if (length > 0 && length < MAX_PATH)
        {
            for (const wchar_t* tools :
                 {L"\\Debugging Tools for Windows\\dbghelp.dll", L"\\Debugging Tools for Windows 64-Bit\\dbghelp.dll"})
            {
                const std::wstring path = std::wstring(folder.data()) + tools;
                std::error_code ignored;
                if (std::filesystem::exists(path, ignored))
                {
                    if (const HMODULE found = LoadLibraryW(path.c_str()); found != nullptr)
                    {
                        return found;
                    }
                }
            }
        }
        return LoadLibraryW(L"dbghelp.dll");
    }

    template <class Function>
    bool Find(Function& function, const char* name)
    {
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
        return function != nullptr;
    }

    HMODULE module;
};

/// Symbol handling for one walk: the modules that are loaded now.
class SymbolSession
{
public:
    explicit SymbolSession(const SymbolLibrary& symbols) : library(symbols)
    {
        // the options come first: symbols that SymInitialize loads without SYMOPT_LOAD_LINES have no lines
        library.setOptions(library.getOptions() | SYMOPT_LOAD_LINES | SYMOPT_FAIL_CRITICAL_ERRORS);
        isReady = library.initialize(GetCurrentProcess(), nullptr, TRUE) != FALSE;
    }
    ~SymbolSession()
    {
        if (isReady)
        {
            library.cleanup(GetCurrentProcess());
        }
    }
    SymbolSession(const SymbolSession&) = delete;
    SymbolSession& operator=(const SymbolSession&) = delete;

    bool isReady; ///< false where the symbols cannot be read now

    /// False where the source file is not known.
    bool LookUp(const void* address, CallStackEntry& entry) const
    {
        const DWORD64 call = reinterpret_cast<std::uintptr_t>(address) - 1; // the address is where the call returns to
        IMAGEHLP_LINE64 line{};
        line.SizeOfStruct = sizeof line;
        DWORD offsetFromLine = 0;
        if (library.lineFromAddress(GetCurrentProcess(), call, &offsetFromLine, &line) == FALSE)
        {
            return false;
        }
        entry.fileName = line.FileName;
        entry.lineNumber = static_cast<int>(line.LineNumber);
        entry.offsetFromLine = static_cast<int>(offsetFromLine);
        LookUpMethod(call, entry);
        return true;
    }

private:
    void LookUpMethod(DWORD64 call, CallStackEntry& entry) const
    {
        alignas(IMAGEHLP_SYMBOL64) std::array<std::byte, sizeof(IMAGEHLP_SYMBOL64) + NameSize> buffer{};
        auto& symbol = *reinterpret_cast<IMAGEHLP_SYMBOL64*>(buffer.data());
        symbol.SizeOfStruct = sizeof symbol;
        symbol.MaxNameLength = NameSize;
        DWORD64 offset = 0;
        if (library.symFromAddress(GetCurrentProcess(), call, &offset, &symbol) != FALSE)
        {
            entry.methodName = ReadableName(symbol.Name);
            entry.offsetFromSymbol = static_cast<int>(offset);
        }
    }

    /// Undoes the decoration of either compiler family; a name without one stays.
    std::string ReadableName(const char* name) const
    {
        int status = 0;
        const std::unique_ptr<char, decltype(&std::free)> text(
            name[0] == '_' ? abi::__cxa_demangle(name, nullptr, nullptr, &status) : nullptr, &std::free);
        if (text != nullptr)
        {
            return text.get();
        }
        std::array<char, NameSize> undecorated{};
        return library.undecorate(name, undecorated.data(), NameSize, UNDNAME_COMPLETE) != 0 ? undecorated.data()
                                                                                             : name;
    }

    const SymbolLibrary& library;
};
} // namespace

std::optional<StackEntries> LookUpAddresses(const std::vector<const void*>& addresses)
{
    static std::mutex& mutex = *new std::mutex; // never destroyed: an exception may be reported while the program ends
    const std::lock_guard lock(mutex);
    const SymbolLibrary library;
    StackEntries entries;
    if (!library.isComplete)
    {
        return library.isMissing ? std::optional(entries) : std::nullopt;
    }
    const SymbolSession session(library);
    if (!session.isReady)
    {
        return std::nullopt;
    }
    for (const void* const address : addresses)
    {
        CallStackEntry entry;
        if (!session.LookUp(address, entry))
        {
            break;
        }
        entries.push_back(entry);
    }
    return entries;
}
} // namespace Tesmo::Platform
