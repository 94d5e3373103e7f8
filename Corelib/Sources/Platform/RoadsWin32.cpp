#include "RoadsWin32.h"

#include <winsock2.h>

#include <iphlpapi.h>

#include <cstddef>
#include <tuple>
#include <vector>

namespace Tesmo::Platform
{
namespace
{
constexpr ULONG FirstSize = 15000; ///< bytes, as the manual of GetAdaptersAddresses advises
constexpr ULONG Wanted = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_SKIP_DNS_SERVER;

/// The better comes first.
std::tuple<bool, bool, IF_INDEX> RankOf(const IP_ADAPTER_ADDRESSES& adapter)
{
    return {adapter.IfType == IF_TYPE_SOFTWARE_LOOPBACK, adapter.OperStatus != IfOperStatusUp, adapter.IfIndex};
}
} // namespace

unsigned long FindBroadcastInterface()
{
    std::vector<std::byte> buffer(FirstSize);
    ULONG size = FirstSize;
    ULONG result = ERROR_BUFFER_OVERFLOW;
    for (int calls = 0; result == ERROR_BUFFER_OVERFLOW && calls < 3; ++calls) // adapters may come meanwhile
    {
        buffer.resize(size);
        auto* const first = reinterpret_cast<IP_ADAPTER_ADDRESSES*>(buffer.data());
        result = GetAdaptersAddresses(AF_INET, Wanted, nullptr, first, &size);
    }
    const IP_ADAPTER_ADDRESSES* best = nullptr;
    const auto* entry = result == NO_ERROR ? reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(buffer.data()) : nullptr;
    for (; entry != nullptr; entry = entry->Next)
    {
        if (entry->FirstUnicastAddress != nullptr && (best == nullptr || RankOf(*entry) < RankOf(*best)))
        {
            best = entry;
        }
    }
    return best == nullptr ? 0 : best->IfIndex;
}
} // namespace Tesmo::Platform
