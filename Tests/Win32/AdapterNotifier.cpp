#include <winsock2.h>

#include <iphlpapi.h>

#include <atomic>

// In the IP helper's place: the host's own, a copy named hosthlp.dll, gives the adapters. Beside that gateways count as
// such, and the file C:\address.changed is taken for a change of address, which ends a wait as documented for Windows.

namespace
{
std::atomic<OVERLAPPED*> pending = nullptr;

bool EndWait()
{
    const OVERLAPPED* const waiting = pending.exchange(nullptr);
    return waiting != nullptr && SetEvent(waiting->hEvent) != 0;
}

DWORD WINAPI Watch(void*)
{
    for (;; Sleep(20))
    {
        if (DeleteFileW(L"C:\\address.changed") != 0)
        {
            EndWait();
        }
    }
}
} // namespace

extern "C" ULONG WINAPI GetAdaptersInfo(IP_ADAPTER_INFO* infos, ULONG* size)
{
    static const auto host = reinterpret_cast<decltype(&GetAdaptersInfo)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"hosthlp"), "GetAdaptersInfo")));
    const ULONG result = host(infos, size);
    for (IP_ADAPTER_INFO* info = result == NO_ERROR ? infos : nullptr; info != nullptr; info = info->Next)
    {
        info->GatewayList.Context = info->GatewayList.IpAddress.String[0] != '0' ? 1 : 0;
    }
    return result;
}

extern "C" DWORD WINAPI NotifyAddrChange(HANDLE* handle, OVERLAPPED* overlapped)
{
    static const HANDLE watch = CreateThread(nullptr, 0, Watch, nullptr, 0, nullptr);
    *handle = watch;
    pending = overlapped;
    WSASetLastError(WSA_IO_PENDING);
    return ERROR_IO_PENDING;
}

extern "C" BOOL WINAPI CancelIPChangeNotify(OVERLAPPED*)
{
    return EndWait();
}
