#include <Core/System/Net/IPAddress.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>
#include <Core/System/Int64.h>
#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/UInt16.h>
#include <Core/System/UInt32.h>

#include <algorithm>
#include <charconv>
#include <functional>
#include <iterator>
#include <limits>
#include <numeric>
#include <string>

namespace Tesmo::System::Net
{
namespace
{
constexpr int IPv4Size = 4;
constexpr int IPv6Size = 16;

std::uint32_t CheckedScope(std::int64_t scopeId)
{
    if (scopeId < 0 || scopeId > std::numeric_limits<std::uint32_t>::max())
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return static_cast<std::uint32_t>(scopeId);
}

void RequireFamily(bool isTheRightOne)
{
    if (!isTheRightOne)
    {
        throw Sockets::SocketException(Sockets::SocketError::OperationNotSupported, ThrowSite);
    }
}

constexpr std::uint32_t Number(std::uint32_t first, std::uint32_t second, std::uint32_t third, std::uint32_t fourth)
{
    return first | second << 8 | third << 16 | fourth << 24;
}

std::uint16_t Group(unsigned high, unsigned low)
{
    return static_cast<std::uint16_t>(high << 8 | low);
}

/// A text that is built up from numbers.
class AddressText
{
public:
    void Add(std::uint32_t number, int base)
    {
        end = std::to_chars(end, std::end(text), number, base).ptr;
    }

    void Add(char separator)
    {
        *end++ = separator;
    }

    String Take()
    {
        return String(std::string(text, end));
    }

private:
    char text[64] = {}; // 8 groups of 4, 8 separators and a scope of 10
    char* end = text;
};
} // namespace

constinit const IPAddress IPAddress::Any(0, nullptr);
constinit const IPAddress IPAddress::Broadcast(0xFFFFFFFF, nullptr);

IPAddress::IPAddress(const Array<Byte>& bytes)
{
    if (NotNull(bytes).Length() != IPv4Size && bytes.Length() != IPv6Size)
    {
        throw ArgumentException(ThrowSite);
    }
    isIPv6 = bytes.Length() == IPv6Size;
    if (!isIPv6)
    {
        address = Number(bytes[0], bytes[1], bytes[2], bytes[3]);
        return;
    }
    address = 0;
    for (int i = 0; i < 8; ++i)
    {
        numbers[i] = Group(bytes[2 * i], bytes[2 * i + 1]);
    }
}

IPAddress::IPAddress(const Array<Byte>& bytes, std::int64_t scope) : IPAddress(bytes)
{
    if (!isIPv6)
    {
        throw ArgumentException(ThrowSite);
    }
    scopeId = CheckedScope(scope);
}

IPAddress::IPAddress(std::uint8_t first, std::uint8_t second, std::uint8_t third, std::uint8_t fourth)
    : address(Number(first, second, third, fourth))
{
}

IPAddress::IPAddress(std::int64_t rawAddress) : address(static_cast<std::uint32_t>(rawAddress))
{
    if (static_cast<std::uint64_t>(rawAddress) >> 32 != 0)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
}

IPAddress::IPAddress(const unsigned char* bytes, std::uint32_t scope) : address(0), scopeId(scope), isIPv6(true)
{
    for (int i = 0; i < 8; ++i)
    {
        numbers[i] = Group(bytes[2 * i], bytes[2 * i + 1]);
    }
}

IPAddress::IPAddress(const IPAddress& other) : Object()
{
    *this = other;
}

IPAddress& IPAddress::operator=(const IPAddress& other)
{
    NotNull(other);
    address = other.address;
    std::copy(std::begin(other.numbers), std::end(other.numbers), std::begin(numbers));
    scopeId = other.scopeId;
    isIPv6 = other.isIPv6;
    return *this;
}

bool IPAddress::Equals(const Object& other) const
{
    if (IsNull(other))
    {
        return false;
    }
    const auto* const that = dynamic_cast<const IPAddress*>(&other);
    return that != nullptr && address == that->address && scopeId == that->scopeId && isIPv6 == that->isIPv6 &&
           std::equal(std::begin(numbers), std::end(numbers), std::begin(that->numbers));
}

bool IPAddress::operator==(const IPAddress& other) const
{
    return Equals(other);
}

String IPAddress::ToString() const
{
    AddressText text;
    if (!isIPv6)
    {
        for (int shift = 0; shift < 32; shift += 8)
        {
            text.Add(address >> shift & 0xFF, 10);
            if (shift < 24)
            {
                text.Add('.');
            }
        }
        return text.Take();
    }
    for (int i = 0; i < 8; ++i)
    {
        if (i > 0)
        {
            text.Add(':');
        }
        text.Add(numbers[i], 16);
    }
    if (scopeId != 0)
    {
        text.Add('%');
        text.Add(scopeId, 10);
    }
    return text.Take();
}

int IPAddress::GetHashCode() const
{
    return isIPv6 ? std::accumulate(std::begin(numbers), std::end(numbers), 0, std::bit_xor<int>())
                  : Int64(static_cast<std::int64_t>(address)).GetHashCode();
}

Sockets::AddressFamily IPAddress::AddressFamily() const
{
    return isIPv6 ? Sockets::AddressFamily::InterNetworkV6 : Sockets::AddressFamily::InterNetwork;
}

void IPAddress::Address(std::uint32_t value)
{
    RequireFamily(!isIPv6);
    address = value;
}

std::uint32_t IPAddress::HostOrder() const
{
    return Number(address >> 24, address >> 16 & 0xFF, address >> 8 & 0xFF, address & 0xFF);
}

Array<Byte> IPAddress::GetAddressBytes() const
{
    unsigned char bytes[IPv6Size];
    const int size = CopyTo(bytes);
    return Array<Byte>(std::vector<Byte>(bytes, bytes + size));
}

std::int64_t IPAddress::GetScopeId() const
{
    RequireFamily(isIPv6);
    return scopeId;
}

void IPAddress::SetScopeId(std::int64_t scope)
{
    RequireFamily(isIPv6);
    scopeId = CheckedScope(scope);
}

IPAddress IPAddress::Parse(const String& text)
{
    const std::string& utf8 = NotNull(text).Utf8();
    const bool hasBrackets = utf8.size() >= 2 && utf8.front() == '[' && utf8.back() == ']';
    const String bare = hasBrackets ? text.Substring(1, text.Length() - 2) : text;
    const Sp<Array<String>> octets = bare.Split('.');
    return octets->Length() == IPv4Size ? ParseIPv4(*octets) : ParseIPv6(bare);
}

IPAddress IPAddress::ParseIPv4(const Array<String>& parts)
{
    return IPAddress(Byte::Parse(parts[0]), Byte::Parse(parts[1]), Byte::Parse(parts[2]), Byte::Parse(parts[3]));
}

IPAddress IPAddress::ParseIPv6(const String& text)
{
    const int percent = text.IndexOf('%');
    const std::uint32_t scope = percent < 0 ? 0 : UInt32::Parse(text.Substring(percent + 1));
    const Sp<Array<String>> groups = (percent < 0 ? text : text.Substring(0, percent)).Split(':');
    if (groups->Length() != 8)
    {
        throw ArgumentException(ThrowSite);
    }
    IPAddress parsed;
    parsed.address = 0;
    parsed.isIPv6 = true;
    parsed.scopeId = scope;
    // decimal, not hexadecimal: required
    std::transform(groups->begin(), groups->end(), std::begin(parsed.numbers),
                   [](const String& group) { return UInt16::Parse(group); });
    return parsed;
}

bool IPAddress::TryParse(const String& text, IPAddress& result)
{
    if (IsNull(text) || text.IsEmpty()) // as for each adapter without a gateway: no exception for that
    {
        return false;
    }
    try
    {
        result = Parse(text);
        return true;
    }
    catch (const Exception&)
    {
        return false;
    }
}

bool IPAddress::IsLoopback(const IPAddress& address)
{
    if (IsNull(address))
    {
        return false;
    }
    if (!address.isIPv6)
    {
        return (address.address & 0xFF) == 127;
    }
    return std::all_of(address.numbers, address.numbers + 6, [](std::uint16_t group) { return group == 0; }) &&
           address.numbers[7] == 1;
}

int IPAddress::CopyTo(unsigned char* bytes) const
{
    if (!isIPv6)
    {
        for (int i = 0; i < IPv4Size; ++i)
        {
            bytes[i] = static_cast<unsigned char>(address >> 8 * i);
        }
        return IPv4Size;
    }
    for (const std::uint16_t number : numbers)
    {
        *bytes++ = static_cast<unsigned char>(number >> 8);
        *bytes++ = static_cast<unsigned char>(number);
    }
    return IPv6Size;
}
} // namespace Tesmo::System::Net
