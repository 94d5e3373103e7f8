#include "AddressChange.h"

#include <winsock2.h>

#include <iphlpapi.h>

#include <atomic>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

HANDLE notification = nullptr;
OVERLAPPED overlapped = {};

/// One event serves all waits: one made for each would be left behind.
std::atomic<HANDLE> changeEvent = nullptr;

HANDLE ChangeEvent()
{
    HANDLE event = changeEvent;
    if (event == nullptr)
    {
        event = WSACreateEvent();
        changeEvent = event;
    }
    return event;
}

bool IsPending(DWORD result)
{
    return result == NO_ERROR || result == ERROR_IO_PENDING || WSAGetLastError() == WSA_IO_PENDING;
}

} // namespace

bool WaitForAddressChange()
{
    const HANDLE event = ChangeEvent();
    if (WaitForSingleObject(event, 0) == WAIT_OBJECT_0) // a cancel came first: no notification is left pending
    {
        WSAResetEvent(event);
        return false;
    }
    overlapped.hEvent = event;
    WSASetLastError(0); // an earlier wait left 997 there, which must not hide a failure of this one
    if (!IsPending(NotifyAddrChange(&notification, &overlapped)))
    {
        return false;
    }
    const bool signalled = WaitForSingleObject(event, INFINITE) == WAIT_OBJECT_0;
    WSAResetEvent(event);
    overlapped = {};
    return signalled;
}

int CancelAddressChangeWait()
{
    const int result = CancelIPChangeNotify(&overlapped);
    if (const HANDLE event = changeEvent; result == 0 && event != nullptr)
    {
        SetEvent(event); // nothing was pending: the next wait, or one that the platform can't cancel, ends here
    }
    return result;
}

void NoteAddressChange() {}

void EndAddressChangeWatch()
{
    if (const HANDLE event = changeEvent; event != nullptr)
    {
        WSAResetEvent(event);
    }
}

} // namespace Zelkor::Discovery::Client::Platform
