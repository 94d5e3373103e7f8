#include "ThreadSlotUse.h"
#include "Threads.h"

#include <windows.h>

#include <algorithm>

namespace Tesmo::Platform
{
struct ThreadSlot : ThreadSlotUse
{
    ThreadRoutine routine = nullptr;
    void* argument = nullptr;
    HANDLE nativeHandle = nullptr;
    std::atomic<bool> running = false;

    /// Leaves the slot for the thread, once: the thread calls it, or whoever terminated the thread.
    void LeaveOfThread()
    {
        if (running.exchange(false))
        {
            Leave();
        }
    }
};

namespace
{
constexpr int MinimumStack = 256 * 1024; // bytes; a JSON text of 1000 levels needs 135 KB (decision 40)
constexpr DWORD Refused = 0xFFFFFFFF;    // SuspendThread, ResumeThread: "(DWORD) -1" is failure

constinit std::array<ThreadSlot, ThreadSlotCount> slots{};
constinit std::atomic<bool> mainThreadMissing = true;
constinit thread_local ThreadSlot* currentSlot = nullptr;

void RegisterMainThread()
{
    if (mainThreadMissing.exchange(false))
    {
        ThreadSlot& slot = slots[0];
        slot.useCount = 1;
        const HANDLE process = GetCurrentProcess();
        DuplicateHandle(process, GetCurrentThread(), process, &slot.nativeHandle, 0, FALSE, DUPLICATE_SAME_ACCESS);
        currentSlot = &slot;
    }
}

DWORD WINAPI RunThread(void* parameter)
{
    ThreadSlot& slot = *static_cast<ThreadSlot*>(parameter);
    currentSlot = &slot;
    slot.routine(slot.argument);
    currentSlot = nullptr;
    slot.LeaveOfThread();
    return 0;
}
} // namespace

ThreadSlot* StartThread(ThreadRoutine routine, void* argument, long long& id, int stackSize)
{
    RegisterMainThread();
    ThreadSlot* const slot = ClaimThreadSlot(slots);
    if (slot == nullptr)
    {
        return nullptr;
    }
    slot->routine = routine;
    slot->argument = argument;
    slot->running = true;
    DWORD nativeId = 0;
    // Without the flag the size would be that of the first commitment, and each thread reserve as much as the program
    // file says. Suspended at first: the slot must hold the handle before the thread can use it.
    slot->nativeHandle =
        ::CreateThread(nullptr, static_cast<SIZE_T>(stackSize > 0 ? std::max(stackSize, MinimumStack) : 0), RunThread,
                       slot, CREATE_SUSPENDED | STACK_SIZE_PARAM_IS_A_RESERVATION, &nativeId);
    if (slot->nativeHandle == nullptr)
    {
        slot->running = false;
        slot->Leave(2);
        return nullptr;
    }
    id = nativeId;
    ::ResumeThread(slot->nativeHandle);
    return slot;
}

void CloseThread(ThreadSlot& slot)
{
    CloseHandle(slot.nativeHandle);
    slot.Leave();
}

ThreadSlot* CurrentThreadSlot()
{
    RegisterMainThread();
    return currentSlot;
}

long long CurrentThreadId()
{
    return GetCurrentThreadId();
}

bool GetThreadPriority(ThreadSlot& slot, int& priority)
{
    const int native = ::GetThreadPriority(slot.nativeHandle);
    priority = native + NormalThreadPriority;
    return native != THREAD_PRIORITY_ERROR_RETURN;
}

bool SetThreadPriority(ThreadSlot& slot, int priority)
{
    return ::SetThreadPriority(slot.nativeHandle, priority < 5 ? priority - NormalThreadPriority : 0) != 0;
}

void NameThread(ThreadSlot& slot, const char* name)
{
    // Windows 10 and later; looked up, so that the program starts on older systems.
    using SetDescription = HRESULT(WINAPI*)(HANDLE, PCWSTR);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "SetThreadDescription");
    wchar_t wide[64] = {};
    if (found != nullptr && MultiByteToWideChar(CP_UTF8, 0, name, -1, wide, 64) != 0)
    {
        reinterpret_cast<SetDescription>(reinterpret_cast<void*>(found))(slot.nativeHandle, wide);
    }
}

bool CanControlThreads()
{
    return true;
}

bool SuspendThread(ThreadSlot& slot)
{
    return ::SuspendThread(slot.nativeHandle) != Refused;
}

bool ResumeThread(ThreadSlot& slot)
{
    return ::ResumeThread(slot.nativeHandle) != Refused;
}

bool TerminateThread(ThreadSlot& slot, int code)
{
    if (::WaitForSingleObject(slot.nativeHandle, 0) == WAIT_OBJECT_0 ||
        ::TerminateThread(slot.nativeHandle, static_cast<DWORD>(code)) == 0)
    {
        return false;
    }
    ::WaitForSingleObject(slot.nativeHandle, INFINITE); // TerminateThread only begins the end (decision 39)
    slot.LeaveOfThread();                               // the thread may have ended before its own call
    return true;
}

void SleepThread(int milliseconds)
{
    SleepEx(static_cast<DWORD>(milliseconds), FALSE);
}

bool WaitThread(ThreadSlot& slot, int milliseconds)
{
    return milliseconds >= -1 &&
           WaitForSingleObject(slot.nativeHandle, static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0;
}
} // namespace Tesmo::Platform
