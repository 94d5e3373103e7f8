#pragma once

#include <Core/System/Array.h>
#include <Core/System/Byte.h>
#include <Core/System/Net/Sockets/AddressFamily.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

#include <cstdint>
#include <span>

namespace Tesmo::System::Net
{
/// An IPv4 or IPv6 address, a plain value.
class IPAddress : public Object
{
public:
    static const IPAddress Any;       ///< 0.0.0.0
    static const IPAddress Broadcast; ///< 255.255.255.255

    /// 255.255.255.255, not 0.0.0.0: a record that has no address says so by a flag of its own.
    constexpr IPAddress() = default;

    /// @param bytes  4 bytes (IPv4) or 16 (IPv6), the first octet first
    /// @throws ArgumentNullException  bytes is null
    /// @throws ArgumentException      bytes is of another length
    explicit IPAddress(const Array<Byte>& bytes);

    /// IPv6 with a scope.
    /// @throws ArgumentNullException        bytes is null
    /// @throws ArgumentException            bytes is not 16 long
    /// @throws ArgumentOutOfRangeException  scopeId does not fit 32 bits
    IPAddress(const Array<Byte>& bytes, std::int64_t scopeId);

    /// IPv4 by its four octets.
    IPAddress(std::uint8_t first, std::uint8_t second, std::uint8_t third, std::uint8_t fourth);

    /// IPv4 as a number with the first octet in the low byte.
    /// @throws ArgumentOutOfRangeException  the high half of address is not zero
    explicit IPAddress(std::int64_t address);

    /// @throws ArgumentNullException  other is null
    IPAddress(const IPAddress& other);
    IPAddress& operator=(const IPAddress& other);

    /// Equal family, address, groups and scope; false for null and for another class.
    bool Equals(const Object& other) const override;

    /// IPv4: "10.0.0.1". IPv6: eight hexadecimal groups without padding or shorthand, "0:0:0:0:0:0:0:1", and "%" with
    /// the scope in decimal where there is one.
    String ToString() const override;

    ~IPAddress() override = default;

    /// Goes by the address alone: IPv6 addresses that differ in the scope have the same.
    virtual int GetHashCode() const;

    bool operator==(const IPAddress& other) const;

    /// InterNetwork or InterNetworkV6.
    Sockets::AddressFamily AddressFamily() const;

    /// IPv4: the address as a number, first octet in the low byte; 0 for IPv6.
    std::uint32_t Address() const
    {
        return address;
    }

    /// @throws Sockets::SocketException  the address is IPv6
    void Address(std::uint32_t value);

    /// IPv4: the address as a number that can be calculated with, first octet in the high byte: 10.0.0.1 is 0x0A000001;
    /// 0 for IPv6.
    std::uint32_t HostOrder() const;

    /// IPv6: the groups, the first one at the left of the text; all zero for IPv4.
    std::span<const std::uint16_t, 8> Numbers() const
    {
        return numbers;
    }

    /// 4 bytes or 16.
    Array<Byte> GetAddressBytes() const;

    /// @throws Sockets::SocketException  the address is IPv4
    std::int64_t GetScopeId() const;

    /// @throws Sockets::SocketException     the address is IPv4
    /// @throws ArgumentOutOfRangeException  scopeId does not fit 32 bits
    void SetScopeId(std::int64_t scopeId);

    /// Reads "10.0.0.1" (decimal octets; leading zeros mean nothing) or eight groups as "0:0:0:0:0:0:0:1" with an
    /// optional "%" and scope, either form also in square brackets. The groups are read as decimal, so a text of
    /// ToString with a letter in it does not read back; there is no "::".
    /// @throws ArgumentNullException               text is null
    /// @throws ArgumentException                   there are neither four octets nor eight groups
    /// @throws FormatException, OverflowException  a part is no number, or does not fit
    static IPAddress Parse(const String& text);

    /// False, and no change of result, where Parse throws.
    static bool TryParse(const String& text, IPAddress& result);

    /// 127.x.x.x, and of IPv6 0:0:0:0:0:0:x:1 (the seventh group is not looked at). False for null.
    static bool IsLoopback(const IPAddress& address);

private:
    friend class IPEndPoint;

    constexpr explicit IPAddress(std::uint32_t number, std::nullptr_t) : address(number) {}
    IPAddress(const unsigned char* bytes, std::uint32_t scope);

    static IPAddress ParseIPv4(const Array<String>& parts);
    static IPAddress ParseIPv6(const String& text);

    /// Writes 4 or 16 bytes.
    /// @returns how many
    int CopyTo(unsigned char* bytes) const;

    std::uint32_t address = 0xFFFFFFFF;
    std::uint16_t numbers[8] = {};
    std::uint32_t scopeId = 0;
    bool isIPv6 = false;
};
} // namespace Tesmo::System::Net
