#include "IPConfigRules.h"

#include <bit>
#include <cstdint>

namespace Zelkor::Discovery::Client
{
using Tesmo::System::Net::IPAddress, Tesmo::System::Net::Sockets::AddressFamily;

namespace
{
bool IsHostAddress(const IPAddress& address)
{
    const std::uint32_t firstByte = address.HostOrder() >> 24;
    return address.AddressFamily() == AddressFamily::InterNetwork && firstByte != 0 && firstByte != 127 &&
           address != IPAddress::Broadcast;
}

bool IsMask(const IPAddress& address)
{
    const std::uint32_t mask = address.HostOrder() & 0x7FFFFFFF; // bit 31 is not looked at
    const std::uint32_t fromLowestUpward = mask == 0 ? 0 : 0x80000000 - (1U << std::countr_zero(mask));
    return address.AddressFamily() == AddressFamily::InterNetwork && mask == fromLowestUpward;
}
} // namespace

bool IsAcceptable(const NICConfig& config)
{
    return IsHostAddress(config.IPAddress) && IsMask(config.SubNetMask);
}
} // namespace Zelkor::Discovery::Client
