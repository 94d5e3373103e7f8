#include "Sockets.h"

#include "NativeSocketLinux.h"
#include "RoadsLinux.h"
#include "SocketErrorsLinux.h"

#include <poll.h>
#include <sys/ioctl.h>

#include <cerrno>

namespace Tesmo::Platform
{
namespace
{
int ResultOf(int outcome)
{
    return outcome < 0 ? SocketErrorOf(errno) : 0;
}

/// Waits for a connect that a signal interrupted: the kernel goes on with it, and a second connect would fail.
int AwaitConnection(const NativeSocket& socket)
{
    pollfd wait = {socket.descriptor, POLLOUT, 0};
    while (::poll(&wait, 1, -1) < 0)
    {
        if (errno != EINTR)
        {
            return errno;
        }
    }
    int error = 0;
    socklen_t length = sizeof(error);
    return ::getsockopt(socket.descriptor, SOL_SOCKET, SO_ERROR, &error, &length) == 0 ? error : errno;
}

/// Sets the options that give a new socket the behaviour of Windows.
void Prepare(const NativeSocket& socket)
{
    const int on = 1;
    if (socket.family == AF_INET && socket.datagram)
    {
        ::setsockopt(socket.descriptor, IPPROTO_IP, IP_RECVERR, &on, sizeof(on));
    }
    if (socket.family == AF_INET6)
    {
        ::setsockopt(socket.descriptor, IPPROTO_IPV6, IPV6_V6ONLY, &on, sizeof(on)); // the default of Windows
        if (socket.datagram)
        {
            ::setsockopt(socket.descriptor, IPPROTO_IPV6, IPV6_RECVERR, &on, sizeof(on));
        }
    }
}
} // namespace

int ReadLocalAddress(const NativeSocket& socket, NativeAddress& local)
{
    if (::getsockname(socket.descriptor, local.Receiver(), &local.length) != 0)
    {
        return errno;
    }
    if (local.IsIPv4() && local.IPv4().s_addr == htonl(Nowhere))
    {
        local.IPv4(socket.source);
    }
    return 0;
}

int OpenSocket(int family, int type, int protocol, NativeSocket*& socket)
{
    const int nativeFamily = family == FamilyInterNetworkV6 ? AF_INET6 : family;
    const int descriptor = ::socket(nativeFamily, type | SOCK_CLOEXEC, protocol);
    if (descriptor < 0)
    {
        return SocketErrorOf(errno);
    }
    socket = new NativeSocket(descriptor, nativeFamily, type == TypeDatagram);
    Prepare(*socket);
    return 0;
}

void FreeSocket(NativeSocket* socket)
{
    if (socket != nullptr)
    {
        CloseSocket(*socket);
        delete socket;
    }
}

void CloseSocket(NativeSocket& socket)
{
    if (!socket.state.EnterAndClose())
    {
        return;
    }
    if (!socket.state.IsLast())
    {
        ::shutdown(socket.descriptor, SHUT_RDWR); // close alone wakes no call
    }
    LeaveSocket(socket);
}

bool IsSocketClosed(const NativeSocket& socket)
{
    return socket.state.IsClosed();
}

int ShutdownSocket(NativeSocket& socket, int how)
{
    const Call call(socket);
    const int directions = DirectionsOf(how);
    if (call.Refused() || directions == 0)
    {
        return call.Refused() ? SocketNotSocket : SocketInvalidArgument;
    }
    const int before = socket.state.ShutDown(directions); // noted first, so that the calls that wake see it
    const int outcome = ::shutdown(socket.descriptor, how);
    if (outcome == 0 || (errno == ENOTCONN && socket.datagram)) // a datagram socket is shut down all the same
    {
        return 0;
    }
    const int code = SocketErrorOf(errno);
    socket.state.Reopen(directions & ~before);
    return code;
}

int BindSocket(NativeSocket& socket, const unsigned char* address, int addressSize)
{
    const Call call(socket);
    const NativeAddress local(address, addressSize);
    if (call.Refused() || !local.IsUsable())
    {
        return call.Refused() ? SocketNotSocket : SocketFault;
    }
    return ResultOf(::bind(socket.descriptor, local.Get(), local.length));
}

int BindSocketForSending(NativeSocket& socket, const unsigned char* address, int addressSize)
{
    const Call call(socket);
    NativeAddress local(address, addressSize);
    if (call.Refused() || !local.IsUsable())
    {
        return call.Refused() ? SocketNotSocket : SocketFault;
    }
    if (!socket.datagram || socket.family != AF_INET || !local.IsIPv4())
    {
        return socket.datagram ? SocketFamilyNotSupported : SocketNotSupported;
    }
    const in_addr source = local.IPv4();
    if (source.s_addr != INADDR_ANY && !IsLocal(source))
    {
        return SocketAddressNotAvailable;
    }
    local.IPv4(htonl(Nowhere)); // decision 97
    const int code = ResultOf(::bind(socket.descriptor, local.Get(), local.length));
    if (code == 0)
    {
        socket.source = source.s_addr;
    }
    return code;
}

int ConnectSocket(NativeSocket& socket, const unsigned char* address, int addressSize)
{
    const Call call(socket);
    const NativeAddress peer(address, addressSize);
    if (call.Refused() || !peer.IsUsable())
    {
        return call.Refused() ? SocketNotSocket : SocketFault;
    }
    socket.hasPort = false; // a disconnect gives up a port that was not set by a bind
    int error = ::connect(socket.descriptor, peer.Get(), peer.length) == 0 ? 0 : errno;
    if (error == EINTR)
    {
        error = AwaitConnection(socket);
    }
    if (error == 0)
    {
        return 0;
    }
    if (const int end = call.End(SendingDirection); end != 0)
    {
        return end;
    }
    return error == EINPROGRESS                        ? SocketWouldBlock
           : error == ECONNREFUSED && !socket.datagram ? SocketConnectionRefused
                                                       : SocketErrorOf(error);
}

int ListenSocket(NativeSocket& socket, int backlog)
{
    const Call call(socket);
    return call.Refused() ? SocketNotSocket : ResultOf(::listen(socket.descriptor, backlog));
}

int AcceptSocket(NativeSocket& socket, NativeSocket*& accepted, unsigned char (&address)[SocketAddressSize],
                 int& addressSize)
{
    const Call call(socket);
    if (call.Refused())
    {
        return SocketNotSocket;
    }
    NativeAddress peer;
    int descriptor = -1;
    int error = EINTR;
    while (descriptor < 0 && error == EINTR && call.End(ReceivingDirection) == 0)
    {
        descriptor = ::accept4(socket.descriptor, peer.Receiver(), &peer.length, SOCK_CLOEXEC);
        error = errno;
    }
    if (descriptor < 0)
    {
        const int end = call.End(ReceivingDirection);
        return end != 0 ? end : SocketErrorOf(error);
    }
    accepted = new NativeSocket(descriptor, socket.family, false);
    peer.Give(address, addressSize);
    return 0;
}

int SetSocketBlocking(NativeSocket& socket, bool blocking)
{
    const Call call(socket);
    if (call.Refused())
    {
        return SocketNotSocket;
    }
    int nonBlocking = blocking ? 0 : 1;
    const int code = ResultOf(::ioctl(socket.descriptor, FIONBIO, &nonBlocking));
    if (code == 0)
    {
        socket.blocking = blocking;
    }
    return code;
}

int GetSocketAvailable(NativeSocket& socket, int& bytes)
{
    const Call call(socket);
    return call.Refused() ? SocketNotSocket : ResultOf(::ioctl(socket.descriptor, FIONREAD, &bytes));
}

int GetSocketAddress(NativeSocket& socket, unsigned char (&address)[SocketAddressSize], int& addressSize)
{
    const Call call(socket);
    if (call.Refused())
    {
        return SocketNotSocket;
    }
    NativeAddress local;
    const int error = ReadLocalAddress(socket, local);
    if (error == 0)
    {
        local.Give(address, addressSize);
    }
    return error == 0 ? 0 : SocketErrorOf(error);
}
} // namespace Tesmo::Platform
