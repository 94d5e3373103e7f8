#include "StackWalker.h"

#include <backtrace.h>
#include <cxxabi.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>

namespace Tesmo::Platform
{
namespace
{
using System::Diagnostics::CallStackEntry;

struct Symbol
{
    const char* name = nullptr; ///< mangled, as the symbol table has it
    std::uintptr_t start = 0;
};

/// Bytes that must be free before symbols are read: a few times the size of the program with its debug information.
constexpr std::size_t LoadRoom = 64 << 20;

/// Whether the error is a shortage of descriptors or memory, which may pass.
bool IsShortage(int code)
{
    return code == EMFILE || code == ENFILE || code == ENOMEM;
}

/// The outcome of one look-up.
struct LookUp
{
    StackEntries entries;
    bool isShortOfResources = false;
};

/// Notes shortages alone: a program without symbols has no entries, and that is an answer.
/// @param code  errno, or -1 where symbols are missing
void NoteError(void* lookUp, const char*, int code)
{
    static_cast<LookUp*>(lookUp)->isShortOfResources |= IsShortage(code);
}

void IgnoreError(void*, const char*, int) {}

/// Whether files can be opened at all.
bool HasDescriptors()
{
    const int probe = open("/proc/self/exe", O_RDONLY | O_CLOEXEC);
    const bool isShort = probe < 0 && IsShortage(errno);
    if (probe >= 0)
    {
        close(probe);
    }
    return !isShort;
}

bool HasMemory()
{
    void* const probe = mmap(nullptr, LoadRoom, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return probe != MAP_FAILED && munmap(probe, LoadRoom) == 0;
}

bool IsMangled(const char* name)
{
    return name != nullptr && name[0] == '_' && name[1] == 'Z';
}

std::string Demangled(const char* name)
{
    if (name == nullptr)
    {
        return {};
    }
    if (!IsMangled(name))
    {
        return name;
    }
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(abi::__cxa_demangle(name, nullptr, nullptr, &status),
                                                           &std::free);
    return text == nullptr ? name : text.get();
}

int AddEntry(void* lookUp, std::uintptr_t, const char* file, int line, const char* function)
{
    if (file != nullptr)
    {
        static_cast<LookUp*>(lookUp)->entries.push_back({file, line, Demangled(function), 0, 0});
    }
    return 0;
}

void KeepSymbol(void* symbol, std::uintptr_t, const char* name, std::uintptr_t start, std::uintptr_t)
{
    *static_cast<Symbol*>(symbol) = {name, start};
}

/// Whether the address lies in the program or plug-in that this library is linked into. Others may be unloaded, and
/// others loaded at the same address (decision 72).
bool IsInOwnModule(const void* address)
{
    static const char ownPlace = 0;
    Dl_info own{};
    Dl_info other{};
    return dladdr(&ownPlace, &own) != 0 && dladdr(address, &other) != 0 && own.dli_fbase == other.dli_fbase;
}

/// Finds the entries of addresses by GCC's libbacktrace, which reads the symbols at its first use and keeps them.
class Resolver
{
public:
    /// The entries of one address: none where its source file is not known, nothing where symbols cannot be read now.
    const StackEntries* Resolve(const void* address)
    {
        const auto place = known.find(address);
        if (place != known.end())
        {
            return &place->second;
        }
        LookUp found;
        if (IsInOwnModule(address))
        {
            found = Find(reinterpret_cast<std::uintptr_t>(address));
        }
        return found.isShortOfResources ? nullptr : &known.emplace(address, std::move(found.entries)).first->second;
    }

    std::mutex mutex; ///< held by every caller

private:
    LookUp Find(std::uintptr_t returnAddress)
    {
        const std::uintptr_t call = returnAddress - 1; // the return address may belong to the next line or function
        LookUp found;
        if (!MakeState())
        {
            found.isShortOfResources = true;
            return found;
        }
        backtrace_pcinfo(state, call, AddEntry, NoteError, &found);
        if (found.entries.empty())
        {
            // A state whose load failed stays so and cannot be freed: the next look-up makes another (decision 74).
            state = found.isShortOfResources ? nullptr : state;
            return found;
        }
        found.isShortOfResources = false;
        Describe(found.entries, returnAddress);
        return found;
    }

    /// False, with no state made, while a load would fail.
    bool MakeState()
    {
        if (state == nullptr && HasDescriptors() && HasMemory())
        {
            state = backtrace_create_state(nullptr, 1, IgnoreError, nullptr); // 1: threads use it
        }
        return state != nullptr;
    }

    /// Adds what the symbol table knows.
    void Describe(StackEntries& entries, std::uintptr_t returnAddress)
    {
        Symbol symbol;
        backtrace_syminfo(state, returnAddress - 1, KeepSymbol, IgnoreError, &symbol);
        if (IsMangled(symbol.name) && entries.back().methodName.find("::") == std::string::npos)
        {
            entries.back().methodName = Demangled(symbol.name); // the line table has short names of local functions
        }
        for (CallStackEntry& entry : entries)
        {
            entry.offsetFromSymbol = symbol.start == 0 ? 0 : static_cast<int>(returnAddress - symbol.start);
        }
    }

    backtrace_state* state = nullptr;
    std::unordered_map<const void*, StackEntries> known;
};

/// Never destroyed: an exception may be reported while the program ends.
Resolver& TheResolver()
{
    static Resolver& resolver = *new Resolver;
    return resolver;
}
} // namespace

std::optional<StackEntries> LookUpAddresses(const std::vector<const void*>& addresses)
{
    Resolver& resolver = TheResolver();
    const std::lock_guard lock(resolver.mutex);
    StackEntries all;
    for (const void* const address : addresses)
    {
        const StackEntries* const entries = resolver.Resolve(address);
        if (entries == nullptr)
        {
            return std::nullopt;
        }
        if (entries->empty())
        {
            break;
        }
        all.insert(all.end(), entries->begin(), entries->end());
    }
    return all;
}
} // namespace Tesmo::Platform
