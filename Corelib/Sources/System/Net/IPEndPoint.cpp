#include <Core/System/Net/IPEndPoint.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>

#include <algorithm>

namespace Tesmo::System::Net
{
namespace
{
constexpr int IPv4Family = 2;
constexpr int IPv6Family = 23;
// sizes and offsets of sockaddr_in and sockaddr_in6, in bytes; sockaddr_in uses only its first 8
constexpr int IPv4Size = 16;
constexpr int IPv4Used = 8;
constexpr int IPv6Size = 28;
constexpr int IPv4AddressOffset = 4;
constexpr int IPv6AddressOffset = 8;
constexpr int ScopeOffset = 24;

int CheckedPort(int port)
{
    if (port < IPEndPoint::MinPort || port > IPEndPoint::MaxPort)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return port;
}

/// The family of a raw address, which must be long enough for it.
int CheckedFamily(const unsigned char* bytes, int size)
{
    NotNull(bytes);
    const int family = size < 2 ? 0 : bytes[0] | bytes[1] << 8;
    if (!(family == IPv4Family && size >= IPv4Used) && !(family == IPv6Family && size >= IPv6Size))
    {
        throw ArgumentException(ThrowSite);
    }
    return family;
}

std::uint32_t ReadLowFirst(const unsigned char* bytes)
{
    return bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8 | static_cast<std::uint32_t>(bytes[2]) << 16 |
           static_cast<std::uint32_t>(bytes[3]) << 24;
}
} // namespace

IPEndPoint::IPEndPoint(const IPAddress& hostAddress, int portNumber)
    : EndPoint(Sockets::AddressFamily::InterNetwork),
      address(hostAddress),
      port(CheckedPort(portNumber))
{
    AddressFamily(address.AddressFamily());
}

IPEndPoint::IPEndPoint(const unsigned char* bytes, int size)
    : EndPoint(Sockets::AddressFamily(CheckedFamily(bytes, size))),
      address(bytes[0] == IPv4Family ? IPAddress(ReadLowFirst(bytes + IPv4AddressOffset), nullptr)
                                     : IPAddress(bytes + IPv6AddressOffset, ReadLowFirst(bytes + ScopeOffset))),
      port(bytes[2] << 8 | bytes[3])
{
}

bool IPEndPoint::Equals(const Object& other) const
{
    if (IsNull(other))
    {
        return false;
    }
    const auto* const that = dynamic_cast<const IPEndPoint*>(&other);
    return that != nullptr && port == that->port && address == that->address;
}

String IPEndPoint::ToString() const
{
    return String::Format("{0}:{1}", address, port);
}

Up<EndPoint> IPEndPoint::Create(const SocketAddress& socketAddress) const
{
    NotNull(socketAddress);
    unsigned char bytes[IPv6Size];
    const int size = std::min(socketAddress.Size(), IPv6Size);
    std::copy_n(socketAddress.Data().begin(), size, bytes);
    return Up<EndPoint>(new IPEndPoint(bytes, size));
}

SocketAddress IPEndPoint::Serialize() const
{
    unsigned char bytes[IPv6Size] = {};
    const bool isIPv6 = address.isIPv6;
    bytes[0] = static_cast<unsigned char>(isIPv6 ? IPv6Family : IPv4Family);
    bytes[2] = static_cast<unsigned char>(port >> 8);
    bytes[3] = static_cast<unsigned char>(port);
    address.CopyTo(bytes + (isIPv6 ? IPv6AddressOffset : IPv4AddressOffset));
    for (int i = 0; isIPv6 && i < 4; ++i)
    {
        bytes[ScopeOffset + i] = static_cast<unsigned char>(address.scopeId >> 8 * i);
    }
    return SocketAddress(bytes, isIPv6 ? IPv6Size : IPv4Size);
}

void IPEndPoint::Address(const IPAddress& value)
{
    address = value;
    AddressFamily(value.AddressFamily());
}

void IPEndPoint::Port(int value)
{
    port = CheckedPort(value);
}
} // namespace Tesmo::System::Net
