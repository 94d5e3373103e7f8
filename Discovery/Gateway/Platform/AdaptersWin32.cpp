#include "Adapters.h"

#include <winsock2.h>

#include <iphlpapi.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

using Buffer = std::vector<std::byte>;

constexpr ULONG FirstInfoSize = 648;        ///< bytes of one IP_ADAPTER_INFO with a 64-bit time_t
constexpr ULONG FirstAddressesSize = 15000; ///< bytes, as the manual of GetAdaptersAddresses advises
constexpr int MaximumAddressesCalls = 3;

int ReadInfos(Buffer& buffer)
{
    ULONG size = FirstInfoSize;
    buffer.resize(size);
    if (GetAdaptersInfo(reinterpret_cast<IP_ADAPTER_INFO*>(buffer.data()), &size) == NO_ERROR)
    {
        return 0;
    }
    buffer.assign(size, std::byte{});
    return static_cast<int>(GetAdaptersInfo(reinterpret_cast<IP_ADAPTER_INFO*>(buffer.data()), &size));
}

int ReadAddresses(Buffer& buffer)
{
    ULONG size = FirstAddressesSize;
    ULONG result = ERROR_BUFFER_OVERFLOW;
    for (int calls = 0; result == ERROR_BUFFER_OVERFLOW && calls < MaximumAddressesCalls; ++calls)
    {
        buffer.assign(size, std::byte{});
        auto* first = reinterpret_cast<IP_ADAPTER_ADDRESSES*>(buffer.data());
        result = GetAdaptersAddresses(AF_UNSPEC, GAA_FLAG_INCLUDE_PREFIX, nullptr, first, &size);
    }
    return static_cast<int>(result);
}

void CopyText(const char (&source)[AdapterTextSize], char (&target)[AdapterTextSize])
{
    std::memcpy(target, source, AdapterTextSize - 1);
}

Adapter MakeAdapter(const IP_ADAPTER_INFO& info)
{
    Adapter adapter;
    adapter.macLength = info.AddressLength;
    std::copy_n(info.Address, std::min<UINT>(info.AddressLength, AdapterAddressSize), adapter.macBytes);
    adapter.index = info.Index;
    CopyText(info.IpAddressList.IpAddress.String, adapter.ipAddressText);
    CopyText(info.IpAddressList.IpMask.String, adapter.ipMaskText);
    if (info.GatewayList.Context != 0)
    {
        CopyText(info.GatewayList.IpAddress.String, adapter.gatewayText);
    }
    return adapter;
}

/// Keeps the low byte of each unit, without a code page: names outside Latin-1 lose their high bytes.
std::string Narrow(const wchar_t* wide)
{
    std::string narrow;
    for (; *wide != L'\0'; ++wide)
    {
        narrow += static_cast<char>(*wide);
    }
    return narrow;
}

void TakeFriendlyName(const Buffer& addresses, Adapter& adapter)
{
    for (const auto* entry = reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(addresses.data()); entry != nullptr;
         entry = entry->Next)
    {
        if (entry->IfIndex == adapter.index)
        {
            adapter.friendlyName = Narrow(entry->FriendlyName);
        }
    }
}

int ReadBoth(std::vector<Adapter>& adapters)
{
    Buffer infos;
    if (const int result = ReadInfos(infos); result != 0)
    {
        return result;
    }
    for (const auto* info = reinterpret_cast<const IP_ADAPTER_INFO*>(infos.data()); info != nullptr; info = info->Next)
    {
        adapters.push_back(MakeAdapter(*info));
    }
    Buffer addresses;
    if (const int result = ReadAddresses(addresses); result != 0)
    {
        adapters.clear();
        return result;
    }
    for (Adapter& adapter : adapters)
    {
        TakeFriendlyName(addresses, adapter);
    }
    return 0;
}

} // namespace

int ReadAdapters(std::vector<Adapter>& adapters)
{
    adapters.clear();
    try
    {
        return ReadBoth(adapters);
    }
    catch (const std::bad_alloc&)
    {
        adapters.clear();
        return ERROR_NOT_ENOUGH_MEMORY;
    }
}

} // namespace Zelkor::Discovery::Client::Platform
