// A part of every plug-in for Win32, which is linked statically and so has a run-time library of its own. That library
// gives back neither the memory that it keeps for exceptions nor the thread-local indexes that it takes, and the client
// loads a plug-in anew for each announcement. This gives both back when the plug-in is unloaded.
#include <windows.h>

#include <atomic>
#include <iterator>

namespace __gnu_cxx
{
void __freeres(); // of libstdc++, which has no header for it
}

namespace
{
/// Those that this library holds; a process has 64 and 1024 (TLS_MINIMUM_AVAILABLE, and the limit of TlsAlloc).
std::atomic<bool> isHeld[1088];

template <typename Function>
Function* OfSystem(const char* name)
{
    void* const address = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), name));
    return reinterpret_cast<Function*>(address);
}

DWORD WINAPI HoldIndex()
{
    const DWORD index = OfSystem<decltype(TlsAlloc)>("TlsAlloc")();
    if (index < std::size(isHeld))
    {
        isHeld[index] = true;
    }
    return index;
}

BOOL WINAPI GiveIndexBack(DWORD index)
{
    if (index < std::size(isHeld))
    {
        isHeld[index] = false; // first, because another thread may be given it at once
    }
    return OfSystem<decltype(TlsFree)>("TlsFree")(index);
}

/// Runs last: destructors of lower priority may throw and catch (GCC gives 101 to 65535 to programs).
[[gnu::destructor(101)]] void GiveAllBack()
{
    for (DWORD index = 0; index < std::size(isHeld); ++index)
    {
        if (isHeld[index])
        {
            GiveIndexBack(index);
        }
    }
    __gnu_cxx::__freeres();
}
} // namespace

// What the linker takes for the imports of kernel32, in all objects of the plug-in.
extern "C"
{
    [[gnu::used]] decltype(&TlsAlloc) importedTlsAlloc __asm__("__imp__TlsAlloc@0") = HoldIndex;
    [[gnu::used]] decltype(&TlsFree) importedTlsFree __asm__("__imp__TlsFree@4") = GiveIndexBack;
}
