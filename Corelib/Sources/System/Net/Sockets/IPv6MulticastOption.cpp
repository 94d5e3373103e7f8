#include <Core/System/Net/Sockets/IPv6MulticastOption.h>

#include <Core/System/ArgumentOutOfRangeException.h>

#include <limits>

namespace Tesmo::System::Net::Sockets
{
namespace
{
std::int64_t CheckedIndex(std::int64_t index)
{
    if (index < 0 || index > std::numeric_limits<std::uint32_t>::max())
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return index;
}
} // namespace

IPv6MulticastOption::IPv6MulticastOption(const IPAddress& group, std::int64_t index)
    : groupAddress(group),
      interfaceIndex(CheckedIndex(index))
{
}

void IPv6MulticastOption::InterfaceIndex(std::int64_t value)
{
    interfaceIndex = CheckedIndex(value);
}
} // namespace Tesmo::System::Net::Sockets
