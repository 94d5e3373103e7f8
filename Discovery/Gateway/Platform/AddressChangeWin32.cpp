#include "AddressChange.h"

#include <winsock2.h>

#include <iphlpapi.h>

#include <mutex>
#include <utility>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

/// Guards all below it. Held while a notification is asked for and while one is cancelled, so that a cancel either meets
/// a wait or is seen by the next one.
std::mutex guard;
HANDLE notification = nullptr;
OVERLAPPED overlapped = {};
bool isWaiting = false;
bool isCancelled = false; ///< by a cancel that no wait has met

/// One event serves all waits: one made for each would be left behind.
HANDLE ChangeEvent()
{
    static const HANDLE event = WSACreateEvent();
    return event;
}

/// A result of 997 says so, too, whatever the last error is.
bool IsPending(DWORD result)
{
    return result == NO_ERROR || result == ERROR_IO_PENDING || WSAGetLastError() == WSA_IO_PENDING;
}

/// False where there is nothing to wait for.
bool BeginWait()
{
    const std::lock_guard lock(guard);
    if (std::exchange(isCancelled, false))
    {
        return false;
    }
    overlapped.hEvent = ChangeEvent();
    WSASetLastError(0); // an earlier wait left 997 there, which must not hide a failure of this one
    isWaiting = IsPending(NotifyAddrChange(&notification, &overlapped));
    return isWaiting;
}

} // namespace

bool WaitForAddressChange()
{
    if (!BeginWait())
    {
        return false;
    }
    const bool signalled = WaitForSingleObject(ChangeEvent(), INFINITE) == WAIT_OBJECT_0;
    const std::lock_guard lock(guard);
    isWaiting = false;
    WSAResetEvent(ChangeEvent());
    overlapped = {};
    return signalled;
}

int CancelAddressChangeWait()
{
    const std::lock_guard lock(guard);
    const int result = CancelIPChangeNotify(&overlapped);
    isCancelled = !isWaiting;
    if (isWaiting)
    {
        SetEvent(ChangeEvent()); // for a notification that the platform can't cancel
    }
    return result;
}

void NoteAddressChange() {}

void EndAddressChangeWatch()
{
    const std::lock_guard lock(guard);
    isCancelled = false;
}

} // namespace Zelkor::Discovery::Client::Platform
