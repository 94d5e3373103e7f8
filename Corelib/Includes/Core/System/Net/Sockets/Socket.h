#pragma once

#include <Core/System/Array.h>
#include <Core/System/Byte.h>
#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Net/EndPoint.h>
#include <Core/System/Net/IPEndPoint.h>
#include <Core/System/Net/Sockets/AddressFamily.h>
#include <Core/System/Net/Sockets/IPv6MulticastOption.h>
#include <Core/System/Net/Sockets/LingerOption.h>
#include <Core/System/Net/Sockets/MulticastOption.h>
#include <Core/System/Net/Sockets/ProtocolType.h>
#include <Core/System/Net/Sockets/SocketFlags.h>
#include <Core/System/Net/Sockets/SocketOptionLevel.h>
#include <Core/System/Net/Sockets/SocketOptionName.h>
#include <Core/System/Net/Sockets/SocketShutdown.h>
#include <Core/System/Net/Sockets/SocketType.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/Up.h>

#include <atomic>
#include <memory>

namespace Tesmo::Platform
{
struct NativeSocket;
}

namespace Tesmo::System::Net::Sockets
{
/// A socket of the operating system. One thread may block in a receive while others send, shut down and close;
/// each must keep the object alive until its call has returned.
///
/// A call that the platform refuses throws SocketException with its number. Arguments are checked before the state of
/// the socket: null gives ArgumentNullException, and so does a buffer that is null or owns no bytes; then
/// IndexOutOfRangeException where offset is not below length or size goes beyond the end: a buffer of length 0 can
/// therefore not be sent. On a closed socket every operation that asks the platform throws ObjectClosedException; Close
/// does not, nor do those that only read this object (GetBlocking, IsConnected, LocalEndPoint and the like).
class Socket : public Object
{
public:
    /// Opens a socket, neither bound nor connected.
    /// @throws SocketException  the platform has none of that kind, or no more room
    Socket(const AddressFamily& family, const SocketType& type, const ProtocolType& protocol);

    /// Closes the socket. No call may be under way.
    ~Socket() override;

    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    /// Binds to a local end point; with port 0 the system chooses one, which LocalEndPoint tells.
    /// @throws ArgumentNullException  endPoint is null or empty
    void Bind(const Sp<EndPoint>& endPoint);

    /// Binds an IPv4 datagram socket to a local end point for sending alone: datagrams that arrive for the end point go
    /// to whoever else is bound to it. From an address other than 0.0.0.0 they leave by the interface that has it, or
    /// not at all (10051).
    /// @throws ArgumentNullException  endPoint is null or empty
    void BindForSending(const Sp<EndPoint>& endPoint);

    /// Sends one datagram.
    /// @param length  of buffer, in bytes
    /// @returns the bytes sent
    int SendTo(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags,
               const EndPoint& endPoint);

    /// Receives one datagram. Blocks without a limit; Shutdown and Close from another thread wake it.
    /// @param length    of buffer, in bytes
    /// @param endPoint  an end point of the socket's family; replaced by that of the sender
    /// @returns the bytes received, 0 for an empty datagram
    /// @throws SocketException  among others 10058 or 10004: shut down or closed meanwhile; 10038: closed as the call
    ///                          began; 10022: the socket has no local port; 10040: the datagram was longer than size,
    ///                          and is lost; 10054: one sent earlier met a closed port
    int ReceiveFrom(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags,
                    Sp<EndPoint>& endPoint);

    /// The same for an end point that is filled in its place.
    int ReceiveFrom(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags,
                    IPEndPoint& endPoint);

    /// Sends to the connected peer.
    /// @returns the bytes sent
    int Send(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags);

    /// Receives from the connected peer, or a datagram whose sender does not matter.
    /// @returns the bytes received, 0 for an empty datagram or the end of a stream
    int Receive(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags);

    /// Ends a direction for good and wakes the calls that wait in it.
    void Shutdown(const SocketShutdown& how);

    /// Returns the socket to the system and wakes every call that waits in it. Throws nothing and may be repeated.
    void Close();

    /// @param value  true is passed on as -1, all bits set, as the protocol's sockets have always had it
    void SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, bool value);
    void SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, int value);
    void SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, const Array<Byte>& value);
    void SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, const LingerOption& value);
    void SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, const MulticastOption& value);
    void SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name,
                         const IPv6MulticastOption& value);

    /// @param value  receives the option; true for any number but 0
    void GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, bool& value);
    void GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, int& value);
    /// @param value  receives as many bytes as it is long; those that the platform does not fill become 0
    void GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, Array<Byte>& value);
    void GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, LingerOption& value);
    /// @param value  receives what the platform fills of the option, then zeros; memberships cannot be read (10042)
    void GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, MulticastOption& value);
    void GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, IPv6MulticastOption& value);

    /// True at first. Otherwise a call that would have to wait throws SocketException 10035 instead.
    bool GetBlocking() const;
    void SetBlocking(bool blocking);

    /// How many bytes can be read at once.
    int GetAvailable() const;

    /// @throws SocketException  NotConnected (10057): the socket is not bound
    /// @param backlog           connections that may wait for Accept; the platform has a limit of its own
    void Listen(int backlog);
    /// Waits for a connection and gives its socket. Close from another thread wakes it.
    Sp<Socket> Accept();

    /// @throws ArgumentNullException  endPoint is null
    void Connect(const EndPoint& endPoint);

    /// Ends the association with a peer; IsConnected and IsBound are false then.
    void Disconnect();

    /// Waits until a socket can be read, written, or has an error, and leaves in each list those of which it holds.
    /// @param microseconds  limit, negative for none
    /// @throws ArgumentNullException  all lists are empty
    static void Select(Collections::Generic::List<Sp<Socket>>& checkRead,
                       Collections::Generic::List<Sp<Socket>>& checkWrite,
                       Collections::Generic::List<Sp<Socket>>& checkError, int microseconds);

    /// Whether Connect or Bind has succeeded, until Close or Disconnect; a peer that went away is not noticed. The
    /// other three are what the socket was made with.
    bool IsConnected() const;
    bool IsBound() const;
    Sockets::AddressFamily AddressFamily() const;
    Sockets::SocketType SocketType() const;
    Sockets::ProtocolType ProtocolType() const;

    /// Null until it is known.
    const EndPoint& LocalEndPoint() const;
    const EndPoint& RemoteEndPoint() const;

private:
    struct Free
    {
        void operator()(Platform::NativeSocket* socket) const;
    };

    struct RawAddress;

    Socket(Platform::NativeSocket* accepted, const Socket& listener);

    using NativeBind = int (*)(Platform::NativeSocket& socket, const unsigned char* address, int addressSize);

    void BindWith(NativeBind bind, const Sp<EndPoint>& endPoint);
    void RequireOpen() const;
    int ReceiveRaw(const Up<unsigned char[]>& buffer, int offset, int size, const SocketFlags& flags,
                   RawAddress& sender);
    void SetRawOption(const SocketOptionLevel& level, const SocketOptionName& name, const void* value, int size);
    void GetRawOption(const SocketOptionLevel& level, const SocketOptionName& name, void* value, int size);

    const std::unique_ptr<Platform::NativeSocket, Free> handle;
    const Sockets::AddressFamily addressFamily;
    const Sockets::ProtocolType protocolType;
    const Sockets::SocketType socketType;
    Up<EndPoint> localEndPoint;
    Up<EndPoint> remoteEndPoint;
    std::atomic<bool> connected = false;
    std::atomic<bool> listening = false;
    std::atomic<bool> nonBlocking = false;
    std::atomic<bool> bound = false;
};
} // namespace Tesmo::System::Net::Sockets
