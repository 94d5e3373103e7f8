#include "WaitObjects.h"

#include <cstring>
#include <iterator>
#include <windows.h>

namespace Tesmo::Platform
{
namespace
{
constexpr DWORD MutexAccess = 0x1F0001; // MUTEX_ALL_ACCESS
constexpr DWORD OtherAccess = 0x1F0003; // SEMAPHORE_ALL_ACCESS, EVENT_ALL_ACCESS

/// A WaitObject is never made: its address is the native handle.
HANDLE NativeHandle(WaitObject& object)
{
    return &object;
}

WaitObjectResult Convert(const char* name, wchar_t (&wide)[WaitNameLimit + 1])
{
    if (std::strlen(name) > WaitNameLimit)
    {
        return WaitObjectResult::NameTooLong;
    }
    const int length = MultiByteToWideChar(CP_ACP, MB_PRECOMPOSED, name, -1, wide, static_cast<int>(std::size(wide)));
    return length == 0 ? WaitObjectResult::Failed : WaitObjectResult::Created;
}

WaitObjectResult Keep(HANDLE handle, WaitObject*& object)
{
    const DWORD error = GetLastError();
    if (handle == nullptr)
    {
        return WaitObjectResult::Failed;
    }
    object = static_cast<WaitObject*>(handle);
    return error == ERROR_ALREADY_EXISTS ? WaitObjectResult::Existing : WaitObjectResult::Created;
}

/// Calls make with the name; it returns the new handle or null. An empty name makes an unnamed object.
template <class Make>
WaitObjectResult New(const char* name, WaitObject*& object, Make make)
{
    wchar_t wide[WaitNameLimit + 1] = {};
    const WaitObjectResult converted = Convert(name, wide);
    if (converted != WaitObjectResult::Created)
    {
        return converted;
    }
    SetLastError(0); // a call that succeeds need not clear it
    return Keep(make(wide), object);
}

int ErrorOf(BOOL succeeded)
{
    return succeeded != 0 ? 0 : static_cast<int>(GetLastError());
}
} // namespace

WaitObjectResult NewMutex(bool initiallyOwned, const char* name, WaitObject*& object)
{
    return New(name, object,
               [=](const wchar_t* wide) { return CreateMutexW(nullptr, initiallyOwned ? TRUE : FALSE, wide); });
}

WaitObjectResult NewSemaphore(int initialCount, int maximumCount, const char* name, WaitObject*& object)
{
    return New(name, object,
               [=](const wchar_t* wide) { return CreateSemaphoreW(nullptr, initialCount, maximumCount, wide); });
}

WaitObjectResult NewEvent(bool manualReset, bool initialState, const char* name, WaitObject*& object)
{
    return New(name, object,
               [=](const wchar_t* wide)
               { return CreateEventW(nullptr, manualReset ? TRUE : FALSE, initialState ? TRUE : FALSE, wide); });
}

WaitObjectResult OpenNamedMutex(const char* name, WaitObject*& object)
{
    return New(name, object, [](const wchar_t* wide) { return OpenMutexW(MutexAccess, FALSE, wide); });
}

WaitObjectResult OpenNamedSemaphore(const char* name, WaitObject*& object)
{
    return New(name, object, [](const wchar_t* wide) { return OpenSemaphoreW(OtherAccess, FALSE, wide); });
}

WaitObjectResult OpenNamedEvent(const char* name, WaitObject*& object)
{
    return New(name, object, [](const wchar_t* wide) { return OpenEventW(OtherAccess, FALSE, wide); });
}

void CloseWaitObject(WaitObject& object)
{
    CloseHandle(NativeHandle(object));
}

bool WaitForObject(WaitObject& object, int milliseconds)
{
    return milliseconds >= -1 &&
           WaitForSingleObject(NativeHandle(object), static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0;
}

int ReleaseMutexObject(WaitObject& object)
{
    return ErrorOf(ReleaseMutex(NativeHandle(object)));
}

int ReleaseSemaphoreObject(WaitObject& object, int count, int& previous)
{
    LONG before = 0;
    const int error = ErrorOf(ReleaseSemaphore(NativeHandle(object), count, &before));
    previous = before;
    return error;
}

int SetEventObject(WaitObject& object)
{
    return ErrorOf(SetEvent(NativeHandle(object)));
}

int ResetEventObject(WaitObject& object)
{
    return ErrorOf(ResetEvent(NativeHandle(object)));
}
} // namespace Tesmo::Platform
