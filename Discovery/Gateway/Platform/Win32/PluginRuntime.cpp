// A part of every plug-in for Win32, which is linked statically and so has a run-time library of its own. That library
// gives back neither the memory that it keeps for exceptions nor the thread-local indexes and the semaphores of its locks
// that it takes, and the client loads a plug-in anew for each announcement. This gives all back when the plug-in is unloaded.
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

/// The semaphores that this library holds: one for each lock of its run-time library. Further ones are its own affair.
std::atomic<HANDLE> semaphores[64];

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

HANDLE WINAPI HoldSemaphore(SECURITY_ATTRIBUTES* security, LONG initial, LONG maximum, LPCWSTR name)
{
    const HANDLE made = OfSystem<decltype(CreateSemaphoreW)>("CreateSemaphoreW")(security, initial, maximum, name);
    for (std::atomic<HANDLE>& held : semaphores)
    {
        HANDLE none = nullptr;
        if (held.compare_exchange_strong(none, made))
        {
            break;
        }
    }
    return made;
}

BOOL WINAPI Close(HANDLE handle)
{
    for (std::atomic<HANDLE>& held : semaphores)
    {
        HANDLE closed = handle;
        if (handle != nullptr && held.compare_exchange_strong(closed, nullptr)) // before another thread may be given it
        {
            break;
        }
    }
    return OfSystem<decltype(CloseHandle)>("CloseHandle")(handle);
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
    for (std::atomic<HANDLE>& held : semaphores)
    {
        if (held != nullptr)
        {
            Close(held);
        }
    }
}
} // namespace

// What the linker takes for the imports of kernel32, in all objects of the plug-in.
extern "C"
{
    [[gnu::used]] decltype(&TlsAlloc) importedTlsAlloc __asm__("__imp__TlsAlloc@0") = HoldIndex;
    [[gnu::used]] decltype(&TlsFree) importedTlsFree __asm__("__imp__TlsFree@4") = GiveIndexBack;
    [[gnu::used]] decltype(&CreateSemaphoreW)
        importedCreateSemaphore __asm__("__imp__CreateSemaphoreW@16") = HoldSemaphore;
    [[gnu::used]] decltype(&CloseHandle) importedCloseHandle __asm__("__imp__CloseHandle@4") = Close;
}
