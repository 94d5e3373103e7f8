#pragma once

#include <Core/System/Net/IPAddress.h>
#include <Core/System/Net/IPEndPoint.h>
#include <Core/System/Net/Sockets/AddressFamily.h>
#include <Core/System/Net/Sockets/IPv6MulticastOption.h>
#include <Core/System/Net/Sockets/MulticastOption.h>
#include <Core/System/Net/Sockets/Socket.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Core/System/Up.h>

namespace Tesmo::System::Net::Sockets
{
/// A datagram socket with the usual steps taken. Every operation but the property Client throws NullReferenceException
/// when Client is empty, and passes the exceptions of Socket on.
class UdpClient : public Object
{
public:
    /// An IPv4 datagram socket, not bound.
    UdpClient();

    /// Bound to a port of all interfaces (IPv4).
    /// @throws ArgumentOutOfRangeException  port is not in 0 to 65535
    explicit UdpClient(int port);

    /// Bound to an end point.
    /// @throws ArgumentNullException  localEndPoint is null
    explicit UdpClient(const IPEndPoint& localEndPoint);

    /// Connected to the first address that the name service gives for a host.
    /// @throws ArgumentNullException        hostName is null
    /// @throws ArgumentOutOfRangeException  port is not in 0 to 65535
    /// @throws InvalidOperationException    the look-up has no answer
    UdpClient(const String& hostName, int port);

    /// The socket itself, shared with the caller; empty where none is set.
    Sp<Socket> Client() const
    {
        return client;
    }
    /// Releases the socket held before.
    void Client(const Sp<Socket>& value)
    {
        client = value;
    }

    /// Sends one datagram. Before one to 255.255.255.255 it switches the socket's broadcast option on, which stays on.
    /// @returns the bytes sent
    /// @throws NullReferenceException     buffer is null or owns no bytes
    /// @throws ArgumentNullException      endPoint is null
    /// @throws InvalidOperationException  the client is connected
    int Send(const Up<unsigned char[]>& buffer, int length, const IPEndPoint& endPoint);

    /// Sends one datagram to the connected peer.
    /// @returns the bytes sent
    int Send(const Up<unsigned char[]>& buffer, int length);

    /// Receives one datagram: see Socket::ReceiveFrom.
    /// @param endPoint  receives the sender
    int Receive(const Up<unsigned char[]>& buffer, int length, IPEndPoint& endPoint);

    /// Closes the socket, which stays in Client, and wakes the calls that wait in it.
    void Close();

    /// @throws ArgumentNullException  endPoint is null
    void Connect(const IPEndPoint& endPoint);
    void Connect(const IPAddress& address, int port);
    void Connect(const String& hostName, int port);

    /// Joins or leaves a multicast group, IPv4 or IPv6 as the address is.
    /// @throws ArgumentNullException  group is null
    void JoinMulticastGroup(const IPAddress& group);
    void JoinMulticastGroup(const IPAddress& group, const IPAddress& localAddress);
    void JoinMulticastGroup(int interfaceIndex, const IPAddress& group);
    void JoinMulticastGroup(const MulticastOption& option);
    void JoinMulticastGroup(const IPv6MulticastOption& option);
    void DropMulticastGroup(const IPAddress& group);
    void DropMulticastGroup(const IPAddress& group, int interfaceIndex);
    void DropMulticastGroup(const MulticastOption& option);
    void DropMulticastGroup(const IPv6MulticastOption& option);

private:
    Socket& RequiredClient() const;

    Sp<Socket> client;
};
} // namespace Tesmo::System::Net::Sockets
