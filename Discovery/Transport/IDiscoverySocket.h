#pragma once

#include <Core/System/Net/IPAddress.h>
#include <Core/System/Net/IPEndPoint.h>
#include <Core/System/Net/Sockets/Socket.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/Up.h>

namespace Zelkor::Discovery
{
/// What the discovery protocol needs of the network: datagrams in, datagrams out, and an end that can be called from
/// another thread. One thread may block in Receive while others send, shut down and close.
///
/// Failures are Tesmo::System::Net::Sockets::SocketException with the code of the socket layer and
/// ObjectClosedException on a closed socket. An empty buffer gives ArgumentNullException to a receive and
/// NullReferenceException to a send, a size of 0 or less IndexOutOfRangeException to both.
class IDiscoverySocket : public Tesmo::System::Object
{
public:
    /// The socket underneath.
    virtual Tesmo::Sp<Tesmo::System::Net::Sockets::Socket> GetSocket() = 0;

    /// Blocks until a datagram is there. Shutdown and Close from another thread end the wait with a SocketException
    /// (10058 or 10004).
    /// @param buffer    at least size bytes
    /// @param endpoint  any endpoint of the socket's address family; receives the sender
    /// @returns the bytes received, 0 for an empty datagram
    /// @throws ArgumentNullException  endpoint is null
    virtual int Receive(const Tesmo::Up<unsigned char[]>& buffer, int size,
                        Tesmo::System::Net::IPEndPoint& endpoint) = 0;

    /// Sends one datagram to the remote port at address.
    /// @returns the bytes sent
    virtual int SendTo(const Tesmo::Up<unsigned char[]>& buffer, int size,
                       const Tesmo::System::Net::IPAddress& address) = 0;

    /// Sends one datagram to the remote port at 255.255.255.255.
    /// @returns the bytes sent
    virtual int Broadcast(const Tesmo::Up<unsigned char[]>& buffer, int size) = 0;

    /// Ends sending and receiving for good and wakes a blocked Receive. Does nothing the second time.
    /// @throws ObjectClosedException  the socket is closed, and was not shut down before
    virtual void Shutdown() = 0;

    /// True once Shutdown has succeeded.
    virtual bool IsShutDown() const = 0;

    /// Releases the socket and wakes a blocked Receive. Does nothing the second time.
    virtual void Close() = 0;

    /// The same flag as IsShutDown: two names for it, both part of the interface.
    virtual bool IsShutDownFlag() const = 0;

    /// True once Close has been called.
    virtual bool IsClosed() const = 0;

    /// The port bound; the one that the system chose where 0 was asked for.
    virtual int GetLocalPort() const = 0;

    /// The port sent to.
    virtual int GetRemotePort() const = 0;
};
} // namespace Zelkor::Discovery
