#include "Sockets.h"

#include "RoadsWin32.h"
#include "SocketCall.h"
#include "WinsockWin32.h"

#include <ws2tcpip.h>

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <deque>

namespace Tesmo::Platform
{
namespace
{
/// An event that stays set until it is reset.
class Event
{
public:
    Event() : handle(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

    ~Event()
    {
        CloseHandle(handle);
    }

    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    const HANDLE handle;
};
} // namespace

struct NativeSocket
{
    NativeSocket(SOCKET openHandle, bool isDatagram) : handle(openHandle), datagram(isDatagram) {}

    void Release()
    {
        ::closesocket(handle);
    }

    const SOCKET handle;
    const bool datagram;
    std::atomic<bool> blocking = true;
    SocketState state;
    const Event receivingEnded; ///< set when receiving ends, and never reset
};

namespace
{
/// A call under way, with the error number that it gives.
class Call : public SocketCall<NativeSocket>
{
public:
    using SocketCall::SocketCall;

    /// 0 unless outcome is a failure, else the error number.
    int Result(int outcome, int direction) const
    {
        const int error = outcome == SOCKET_ERROR ? WSAGetLastError() : 0;
        const int end = error == 0 ? 0 : End(direction);
        return end != 0 ? end : error;
    }
};

int ResultOf(int outcome)
{
    return outcome == SOCKET_ERROR ? WSAGetLastError() : 0;
}

HANDLE FileOf(const NativeSocket& socket)
{
    return reinterpret_cast<HANDLE>(socket.handle);
}

/// Ends the calls that wait in the socket; those that begin afterwards meet the shut-down.
void WakeCalls(const NativeSocket& socket)
{
    SetEvent(socket.receivingEnded.handle);
    CancelIoEx(FileOf(socket), nullptr);
}

/// The socket's time-out of a receive in milliseconds.
DWORD ReceiveLimit(const NativeSocket& socket)
{
    DWORD limit = 0;
    int size = sizeof(limit);
    const int outcome = ::getsockopt(socket.handle, SOL_SOCKET, SO_RCVTIMEO, reinterpret_cast<char*>(&limit), &size);
    return outcome == SOCKET_ERROR || limit == 0 ? INFINITE : limit;
}

/// Receives by an overlapped call, which, unlike a blocking one, can be cancelled at any moment.
/// (decision 102)
int ReceiveBlocking(NativeSocket& socket, WSABUF part, DWORD flags, sockaddr* sender, int* senderSize, int& received)
{
    const Event done;
    WSAOVERLAPPED operation = {};
    operation.hEvent = done.handle;
    DWORD bytes = 0;
    int code = ResultOf(WSARecvFrom(socket.handle, &part, 1, &bytes, &flags, sender, senderSize, &operation, nullptr));
    if (code == WSA_IO_PENDING)
    {
        const HANDLE events[] = {done.handle, socket.receivingEnded.handle};
        const DWORD found = WaitForMultipleObjects(2, events, FALSE, ReceiveLimit(socket));
        if (found != WAIT_OBJECT_0)
        {
            CancelIoEx(FileOf(socket), &operation);
        }
        const bool succeeded = WSAGetOverlappedResult(socket.handle, &operation, &bytes, TRUE, &flags) != FALSE;
        code = succeeded ? 0 : WSAGetLastError();
        code = code == WSA_OPERATION_ABORTED && found == WAIT_TIMEOUT ? SocketTimedOut : code;
    }
    received = static_cast<int>(bytes);
    return code;
}

/// Receives what is there, for a socket that does not block.
int ReceiveAtOnce(NativeSocket& socket, WSABUF part, DWORD flags, sockaddr* sender, int* senderSize, int& received)
{
    received =
        ::recvfrom(socket.handle, part.buf, static_cast<int>(part.len), static_cast<int>(flags), sender, senderSize);
    return ResultOf(received);
}

const sockaddr* AddressOf(const unsigned char* address)
{
    return reinterpret_cast<const sockaddr*>(address);
}

/// The sets of a select call, which Windows holds as lists of handles.
struct SelectSets
{
    fd_set read = {};
    fd_set write = {};
    fd_set error = {};
};

bool Contains(const fd_set& set, SOCKET handle)
{
    return std::find(set.fd_array, set.fd_array + set.fd_count, handle) != set.fd_array + set.fd_count;
}

void Insert(fd_set& set, SOCKET handle, bool wanted)
{
    if (wanted && !Contains(set, handle))
    {
        set.fd_array[set.fd_count++] = handle;
    }
}
} // namespace

namespace
{
constexpr DWORD ReportsLostRoutes = IOC_IN | IOC_VENDOR | 15; // mswsock.h of Windows: SIO_UDP_NETRESET

/// Has receives tell of a requester's closed port alone, not of a datagram that has died on its way (decision 205).
void LeaveOutLostRoutes(SOCKET handle)
{
    BOOL reports = FALSE;
    DWORD size = 0;
    WSAIoctl(handle, ReportsLostRoutes, &reports, sizeof(reports), nullptr, 0, &size, nullptr, nullptr);
}
} // namespace

int OpenSocket(int family, int type, int protocol, NativeSocket*& socket)
{
    const SOCKET handle = WSASocketW(family, type, protocol, nullptr, 0, WSA_FLAG_OVERLAPPED);
    if (handle == INVALID_SOCKET)
    {
        return WSAGetLastError();
    }
    SetHandleInformation(reinterpret_cast<HANDLE>(handle), HANDLE_FLAG_INHERIT, 0);
    if (type == TypeDatagram)
    {
        LeaveOutLostRoutes(handle);
    }
    socket = new NativeSocket(handle, type == TypeDatagram);
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
        ::shutdown(socket.handle, SD_BOTH);
        WakeCalls(socket);
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
    const int code = ResultOf(::shutdown(socket.handle, how));
    if (code != 0 && !(code == SocketNotConnected && socket.datagram))
    {
        socket.state.Reopen(directions & ~before);
        return code;
    }
    if ((directions & ReceivingDirection) != 0)
    {
        WakeCalls(socket);
    }
    return 0;
}

int BindSocket(NativeSocket& socket, const unsigned char* address, int addressSize)
{
    const Call call(socket);
    return call.Refused() ? SocketNotSocket : ResultOf(::bind(socket.handle, AddressOf(address), addressSize));
}

int BindSocketForSending(NativeSocket& socket, const unsigned char* address, int addressSize)
{
    const Call call(socket);
    sockaddr_in local = {};
    std::memcpy(&local, address, std::min<std::size_t>(static_cast<std::size_t>(addressSize), sizeof(local)));
    if (call.Refused() || !socket.datagram || local.sin_family != AF_INET)
    {
        return call.Refused() ? SocketNotSocket : socket.datagram ? SocketFamilyNotSupported : SocketNotSupported;
    }
    int size = sizeof(local);
    const int code = ResultOf(::bind(socket.handle, AddressOf(address), addressSize));
    if (code != 0 || local.sin_addr.s_addr == INADDR_ANY)
    {
        return code;
    }
    // a connected datagram socket receives from its peer alone; here the peer is the socket itself (decision 99)
    return ResultOf(::getsockname(socket.handle, reinterpret_cast<sockaddr*>(&local), &size) == SOCKET_ERROR
                        ? SOCKET_ERROR
                        : ::connect(socket.handle, reinterpret_cast<sockaddr*>(&local), size));
}

int ConnectSocket(NativeSocket& socket, const unsigned char* address, int addressSize)
{
    const Call call(socket);
    return call.Refused() ? SocketNotSocket
                          : call.Result(::connect(socket.handle, AddressOf(address), addressSize), SendingDirection);
}

int ListenSocket(NativeSocket& socket, int backlog)
{
    const Call call(socket);
    return call.Refused() ? SocketNotSocket : ResultOf(::listen(socket.handle, backlog));
}

int AcceptSocket(NativeSocket& socket, NativeSocket*& accepted, unsigned char (&address)[SocketAddressSize],
                 int& addressSize)
{
    const Call call(socket);
    if (call.Refused())
    {
        return SocketNotSocket;
    }
    addressSize = SocketAddressSize;
    const SOCKET handle = ::accept(socket.handle, reinterpret_cast<sockaddr*>(address), &addressSize);
    if (handle == INVALID_SOCKET)
    {
        return call.Result(SOCKET_ERROR, ReceivingDirection);
    }
    accepted = new NativeSocket(handle, false);
    return 0;
}

namespace
{
bool IsLimitedBroadcast(const unsigned char* address, int addressSize)
{
    sockaddr_in target = {};
    std::memcpy(&target, address, std::min<std::size_t>(static_cast<std::size_t>(addressSize), sizeof(target)));
    return target.sin_family == AF_INET && target.sin_addr.s_addr == INADDR_BROADCAST;
}

bool IsBoundToNoAddress(const NativeSocket& socket)
{
    sockaddr_in local = {};
    int size = sizeof(local);
    return ::getsockname(socket.handle, reinterpret_cast<sockaddr*>(&local), &size) == 0 &&
           local.sin_addr.s_addr == INADDR_ANY;
}

/// Has what the socket sends leave by the interface with this index, 0 for the usual one.
bool ChooseInterface(const NativeSocket& socket, unsigned long index)
{
    const DWORD value = htonl(index); // ws2ipdef.h: IP_UNICAST_IF takes the index in network order
    return ::setsockopt(socket.handle, IPPROTO_IP, IP_UNICAST_IF, reinterpret_cast<const char*>(&value),
                        sizeof(value)) == 0;
}
} // namespace

int SendSocket(NativeSocket& socket, const unsigned char* data, int size, int flags, const unsigned char* address,
               int addressSize, int& sent)
{
    const Call call(socket);
    if (call.Refused() || (flags & ~(MSG_OOB | MSG_DONTROUTE)) != 0)
    {
        return call.Refused() ? SocketNotSocket : SocketNotSupported;
    }
    const char* const bytes = reinterpret_cast<const char*>(data);
    const auto send = [&]
    {
        return address == nullptr ? ::send(socket.handle, bytes, size, flags)
                                  : ::sendto(socket.handle, bytes, size, flags, AddressOf(address), addressSize);
    };
    sent = send();
    // Windows has such a route on each interface; Wine has those of the system below it (decision 91).
    if (sent == SOCKET_ERROR && WSAGetLastError() == WSAENETUNREACH && address != nullptr &&
        IsLimitedBroadcast(address, addressSize) && IsBoundToNoAddress(socket) &&
        ChooseInterface(socket, FindBroadcastInterface()))
    {
        sent = send();
        const int code = WSAGetLastError();
        ChooseInterface(socket, 0);
        WSASetLastError(code);
    }
    return call.Result(sent, SendingDirection);
}

int ReceiveSocket(NativeSocket& socket, unsigned char* buffer, int size, int flags,
                  unsigned char (&address)[SocketAddressSize], int& addressSize, int& received)
{
    const Call call(socket);
    if (call.Refused() || (flags & ~(MSG_OOB | MSG_PEEK)) != 0)
    {
        return call.Refused() ? SocketNotSocket : SocketNotSupported;
    }
    if (const int end = call.End(ReceivingDirection); end != 0)
    {
        return end;
    }
    addressSize = SocketAddressSize;
    const WSABUF part = {static_cast<u_long>(size), reinterpret_cast<char*>(buffer)};
    const int code = (socket.blocking ? ReceiveBlocking : ReceiveAtOnce)(
        socket, part, static_cast<DWORD>(flags), reinterpret_cast<sockaddr*>(address), &addressSize, received);
    if (!socket.datagram)
    {
        addressSize = 0;
    }
    const int end = call.End(ReceivingDirection);
    return end != 0 ? end : code;
}

int SetSocketOption(NativeSocket& socket, int level, int name, const void* value, int size)
{
    const Call call(socket);
    return call.Refused() ? SocketNotSocket
                          : ResultOf(::setsockopt(socket.handle, level, name, static_cast<const char*>(value), size));
}

int GetSocketOption(NativeSocket& socket, int level, int name, void* value, int& size)
{
    const Call call(socket);
    return call.Refused() ? SocketNotSocket
                          : ResultOf(::getsockopt(socket.handle, level, name, static_cast<char*>(value), &size));
}

int SetSocketBlocking(NativeSocket& socket, bool blocking)
{
    const Call call(socket);
    if (call.Refused())
    {
        return SocketNotSocket;
    }
    u_long nonBlocking = blocking ? 0 : 1;
    const int code = ResultOf(::ioctlsocket(socket.handle, static_cast<long>(FIONBIO), &nonBlocking));
    if (code == 0)
    {
        socket.blocking = blocking;
    }
    return code;
}

int GetSocketAvailable(NativeSocket& socket, int& bytes)
{
    const Call call(socket);
    if (call.Refused())
    {
        return SocketNotSocket;
    }
    u_long available = 0;
    const int code = ResultOf(::ioctlsocket(socket.handle, static_cast<long>(FIONREAD), &available));
    bytes = static_cast<int>(available);
    return code;
}

int GetSocketAddress(NativeSocket& socket, unsigned char (&address)[SocketAddressSize], int& addressSize)
{
    const Call call(socket);
    if (call.Refused())
    {
        return SocketNotSocket;
    }
    addressSize = SocketAddressSize;
    return ResultOf(::getsockname(socket.handle, reinterpret_cast<sockaddr*>(address), &addressSize));
}

int SelectSockets(SelectEntry* entries, int count, int microseconds)
{
    if (count > FD_SETSIZE)
    {
        return SocketInvalidArgument;
    }
    std::deque<Call> calls;
    SelectSets sets;
    for (SelectEntry* entry = entries; entry != entries + count; ++entry)
    {
        if (calls.emplace_back(*entry->socket).Refused())
        {
            return SocketNotSocket;
        }
        Insert(sets.read, entry->socket->handle, entry->read);
        Insert(sets.write, entry->socket->handle, entry->write);
        Insert(sets.error, entry->socket->handle, entry->error);
    }
    timeval limit = {microseconds / 1000000, microseconds % 1000000};
    const int code = ResultOf(::select(0, &sets.read, &sets.write, &sets.error, microseconds < 0 ? nullptr : &limit));
    for (SelectEntry* entry = entries; code == 0 && entry != entries + count; ++entry)
    {
        entry->read = Contains(sets.read, entry->socket->handle);
        entry->write = Contains(sets.write, entry->socket->handle);
        entry->error = Contains(sets.error, entry->socket->handle);
    }
    return code;
}
} // namespace Tesmo::Platform
