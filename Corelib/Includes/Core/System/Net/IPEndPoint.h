#pragma once

#include <Core/System/Net/EndPoint.h>
#include <Core/System/Net/IPAddress.h>

namespace Tesmo::System::Net
{
/// An IP address with a port.
class IPEndPoint : public EndPoint
{
public:
    static constexpr int MinPort = 0;
    static constexpr int MaxPort = 65535;

    /// @throws ArgumentNullException        address is null
    /// @throws ArgumentOutOfRangeException  port is not in 0 to 65535
    IPEndPoint(const IPAddress& address, int port);

    /// Reads the raw form as the platform delivers it (see Create).
    /// @throws ArgumentNullException  bytes is a null pointer
    /// @throws ArgumentException      the family is neither InterNetwork nor InterNetworkV6, or size is too small for it
    IPEndPoint(const unsigned char* bytes, int size);

    /// Equal address and port; false for null and for another class.
    bool Equals(const Object& other) const override;

    /// "10.0.0.1:12001"
    String ToString() const override;

    /// The reverse of Serialize; this object is not changed.
    /// @throws ArgumentNullException  socketAddress is null
    /// @throws ArgumentException      as for the constructor from bytes
    Up<EndPoint> Create(const SocketAddress& socketAddress) const override;

    /// The sockaddr layout of Windows. InterNetwork: 16 bytes, with family (low byte first), port (high byte first),
    /// address and zeros. InterNetworkV6: 28 bytes, with family, port, flow information (zero), address and scope (low
    /// byte first).
    SocketAddress Serialize() const override;

    /// A part of this object: it changes with it.
    const IPAddress& Address() const
    {
        return address;
    }

    /// Also sets the family.
    /// @throws ArgumentNullException  value is null
    void Address(const IPAddress& value);

    /// 0 to 65535; Serialize puts the high byte first.
    int Port() const
    {
        return port;
    }

    /// @throws ArgumentOutOfRangeException  value is not in 0 to 65535
    void Port(int value);

private:
    IPAddress address;
    int port;
};
} // namespace Tesmo::System::Net
