#include "Platform/StackWalker.h"

#include <backtrace.h>
#include <cxxabi.h>
#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

namespace Tesmo::Platform
{
namespace
{
using System::Diagnostics::CallStackEntry;
using Entries = std::vector<CallStackEntry>;

struct Symbol
{
    const char* name = nullptr; ///< mangled, as the symbol table has it
    std::uintptr_t start = 0;
};

void IgnoreError(void*, const char*, int)
{
    // without symbols there are no entries, and that is an answer
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

int AddEntry(void* entries, std::uintptr_t, const char* file, int line, const char* function)
{
    if (file != nullptr)
    {
        static_cast<Entries*>(entries)->push_back({file, line, Demangled(function), 0, 0});
    }
    return 0;
}

void KeepSymbol(void* symbol, std::uintptr_t, const char* name, std::uintptr_t start, std::uintptr_t)
{
    *static_cast<Symbol*>(symbol) = {name, start};
}

/// Whether the address lies in the program or plug-in that this library is linked into. Others may be unloaded and
/// their place taken by another.
bool IsInOwnModule(const void* address)
{
    static const char ownPlace = 0;
    Dl_info own{};
    Dl_info other{};
    return dladdr(&ownPlace, &own) != 0 && dladdr(address, &other) != 0 && own.dli_fbase == other.dli_fbase;
}

/// Entries by address over GCC's libbacktrace, which reads the symbols at its first use and keeps them.
class Resolver
{
public:
    /// The entries of one address; none where its source file is not known.
    const Entries& Resolve(const void* address)
    {
        const auto [place, isNew] = known.try_emplace(address);
        if (isNew && IsInOwnModule(address))
        {
            place->second = LookUp(reinterpret_cast<std::uintptr_t>(address));
        }
        return place->second;
    }

    std::mutex mutex; ///< held by every caller

private:
    Entries LookUp(std::uintptr_t returnAddress)
    {
        const std::uintptr_t call = returnAddress - 1; // the return address may belong to the next line or function
        Entries entries;
        if (state == nullptr)
        {
            return entries;
        }
        backtrace_pcinfo(state, call, AddEntry, IgnoreError, &entries);
        if (entries.empty())
        {
            return entries;
        }
        Symbol symbol;
        backtrace_syminfo(state, call, KeepSymbol, IgnoreError, &symbol);
        if (IsMangled(symbol.name) && entries.back().methodName.find("::") == std::string::npos)
        {
            entries.back().methodName = Demangled(symbol.name); // the line table has short names of local functions
        }
        for (CallStackEntry& entry : entries)
        {
            entry.offsetFromSymbol = symbol.start == 0 ? 0 : static_cast<int>(returnAddress - symbol.start);
        }
        return entries;
    }

    backtrace_state* const state = backtrace_create_state(nullptr, 1, IgnoreError, nullptr); // 1: threads use it
    std::unordered_map<const void*, Entries> known;
};

/// Never destroyed: an exception may be reported while the program ends.
Resolver& TheResolver()
{
    static Resolver& resolver = *new Resolver;
    return resolver;
}
} // namespace

std::vector<CallStackEntry> LookUpAddresses(const void* const* addresses, int count)
{
    Resolver& resolver = TheResolver();
    const std::lock_guard lock(resolver.mutex);
    Entries all;
    for (int i = 0; i < count; i++)
    {
        const Entries& entries = resolver.Resolve(addresses[i]);
        if (entries.empty())
        {
            break;
        }
        all.insert(all.end(), entries.begin(), entries.end());
    }
    return all;
}
} // namespace Tesmo::Platform
