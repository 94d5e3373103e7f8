#pragma once

namespace Tesmo::Platform
{
/// The operating system's sockets, with the contract of Windows Sockets 2.2 on every platform: constants, option
/// values, address layout and error numbers are those of winsock2.h and ws2tcpip.h.
///
/// Every function returns 0 or a Windows Sockets error number and may be called from any thread, several at once on
/// one socket. The two that end a socket are special: ShutdownSocket and CloseSocket wake the calls that block in it.
/// A receive that is then under way fails with SocketShutDown or SocketInterrupted, even when it has got data
/// meanwhile. A call that begins after CloseSocket fails with SocketNotSocket.
///
/// An address is the raw sockaddr of Windows: two bytes of family, low byte first (2 or 23), then the family's layout.
///
/// Constants of the contract that the code here names; all others pass through as numbers.
constexpr int FamilyInterNetwork = 2;
constexpr int FamilyInterNetworkV6 = 23;
constexpr int TypeStream = 1;
constexpr int TypeDatagram = 2;

constexpr int SocketInterrupted = 10004;          ///< closed during the call (WSAEINTR)
constexpr int SocketAccessDenied = 10013;         ///< WSAEACCES
constexpr int SocketFault = 10014;                ///< WSAEFAULT
constexpr int SocketInvalidArgument = 10022;      ///< WSAEINVAL
constexpr int SocketTooManyOpen = 10024;          ///< WSAEMFILE
constexpr int SocketWouldBlock = 10035;           ///< non-blocking, and nothing to do (WSAEWOULDBLOCK)
constexpr int SocketInProgress = 10036;           ///< WSAEINPROGRESS
constexpr int SocketAlreadyInProgress = 10037;    ///< WSAEALREADY
constexpr int SocketNotSocket = 10038;            ///< closed before the call (WSAENOTSOCK)
constexpr int SocketDestinationRequired = 10039;  ///< WSAEDESTADDRREQ
constexpr int SocketMessageSize = 10040;          ///< datagram longer than the buffer, lost (WSAEMSGSIZE)
constexpr int SocketProtocolType = 10041;         ///< WSAEPROTOTYPE
constexpr int SocketProtocolOption = 10042;       ///< WSAENOPROTOOPT
constexpr int SocketProtocolNotSupported = 10043; ///< WSAEPROTONOSUPPORT
constexpr int SocketTypeNotSupported = 10044;     ///< WSAESOCKTNOSUPPORT
constexpr int SocketNotSupported = 10045;         ///< WSAEOPNOTSUPP
constexpr int SocketFamilyNotSupported = 10047;   ///< WSAEAFNOSUPPORT
constexpr int SocketAddressInUse = 10048;         ///< WSAEADDRINUSE
constexpr int SocketAddressNotAvailable = 10049;  ///< WSAEADDRNOTAVAIL
constexpr int SocketNetworkDown = 10050;          ///< WSAENETDOWN
constexpr int SocketNetworkUnreachable = 10051;   ///< WSAENETUNREACH
constexpr int SocketNetworkReset = 10052;         ///< WSAENETRESET
constexpr int SocketConnectionAborted = 10053;    ///< WSAECONNABORTED
constexpr int SocketConnectionReset = 10054;      ///< a datagram sent earlier met a closed port (WSAECONNRESET)
constexpr int SocketNoBufferSpace = 10055;        ///< WSAENOBUFS
constexpr int SocketIsConnected = 10056;          ///< WSAEISCONN
constexpr int SocketNotConnected = 10057;         ///< WSAENOTCONN
constexpr int SocketShutDown = 10058;             ///< shut down during or before the call (WSAESHUTDOWN)
constexpr int SocketTimedOut = 10060;             ///< WSAETIMEDOUT
constexpr int SocketConnectionRefused = 10061;    ///< WSAECONNREFUSED
constexpr int SocketHostDown = 10064;             ///< WSAEHOSTDOWN
constexpr int SocketHostUnreachable = 10065;      ///< WSAEHOSTUNREACH

/// Room for an address, in bytes; the longest that is used is sockaddr_in6 with 28.
constexpr int SocketAddressSize = 32;

/// A socket of the operating system. It outlives its descriptor, which is released when the socket is closed and the
/// last call under way has returned. So the number cannot mean another file while a call still uses it.
struct NativeSocket;

/// Makes a socket. Child processes do not inherit it.
/// @param socket  receives the new socket; the caller frees it with FreeSocket
int OpenSocket(int family, int type, int protocol, NativeSocket*& socket);

/// Closes the socket if it is not closed yet, and frees it. No call may be under way.
void FreeSocket(NativeSocket* socket);

/// Wakes every call that blocks in the socket and gives the descriptor back. Does nothing the second time.
void CloseSocket(NativeSocket& socket);

/// True once CloseSocket was called.
bool IsSocketClosed(const NativeSocket& socket);

/// Ends receiving (0), sending (1) or both (2) and wakes the calls that block. A datagram socket need not be connected.
int ShutdownSocket(NativeSocket& socket, int how);

int BindSocket(NativeSocket& socket, const unsigned char* address, int addressSize);

/// Binds an IPv4 datagram socket (10045, 10047 for others) for sending alone: it sends from the address and never takes
/// what arrives there, which goes to whoever else is bound to the port. From an address other than 0.0.0.0 a datagram
/// leaves by the interface that has the address, or not at all (10051).
int BindSocketForSending(NativeSocket& socket, const unsigned char* address, int addressSize);

/// Connects; an address of family 0 disconnects a datagram socket.
int ConnectSocket(NativeSocket& socket, const unsigned char* address, int addressSize);

int ListenSocket(NativeSocket& socket, int backlog);

/// @param accepted     receives the new socket; the caller frees it with FreeSocket
/// @param address      receives the peer's address
/// @param addressSize  receives its length in bytes
int AcceptSocket(NativeSocket& socket, NativeSocket*& accepted, unsigned char (&address)[SocketAddressSize],
                 int& addressSize);

/// Sends one datagram, or bytes of a stream to the connected peer when address is a null pointer.
///
/// A report that an earlier datagram met a closed port makes no send fail. Where the host has no route for
/// 255.255.255.255, or one that refuses, and the socket is bound to no address, a broadcast leaves by the first
/// interface, in ascending index, that is up, can broadcast and has an IPv4 address (one with a carrier before one
/// without); only where there is none, by loopback. A datagram without a route, or refused by a firewall, fails with
/// SocketNetworkUnreachable.
/// @param flags  1 out of band, 4 without routing; other bits fail with SocketNotSupported
/// @param sent   receives the number of bytes sent
int SendSocket(NativeSocket& socket, const unsigned char* data, int size, int flags, const unsigned char* address,
               int addressSize, int& sent);

/// Receives one datagram, or bytes of a stream. Blocks without a limit unless the socket has a time-out (10060) or
/// does not block (10035). A datagram socket without a local port gives 10022: it gets one by a bind or its first send.
/// @param flags        1 out of band, 2 leave the data queued; other bits fail with SocketNotSupported
/// @param address      receives the sender's address
/// @param addressSize  receives its length in bytes, 0 for a stream
/// @param received     receives the number of bytes, 0 for an empty datagram or the peer's end of a stream
int ReceiveSocket(NativeSocket& socket, unsigned char* buffer, int size, int flags,
                  unsigned char (&address)[SocketAddressSize], int& addressSize, int& received);

/// Sets an option; level, name and value are those of Windows.
int SetSocketOption(NativeSocket& socket, int level, int name, const void* value, int size);

/// Reads an option.
/// @param size  in: room in value, in bytes; out: bytes filled
int GetSocketOption(NativeSocket& socket, int level, int name, void* value, int& size);

int SetSocketBlocking(NativeSocket& socket, bool blocking);

/// @param bytes  receives how many bytes can be read at once
int GetSocketAvailable(NativeSocket& socket, int& bytes);

/// The address that the socket is bound to.
int GetSocketAddress(NativeSocket& socket, unsigned char (&address)[SocketAddressSize], int& addressSize);

/// One socket of a SelectSockets call: what to wait for, and afterwards what was found.
struct SelectEntry
{
    NativeSocket* socket;
    bool read;
    bool write;
    bool error;
};

/// Waits until one of the conditions asked for holds, and clears those that do not. A datagram socket is readable, too,
/// when the next receive would fail because of a closed port.
/// @param microseconds  limit, negative for none
int SelectSockets(SelectEntry* entries, int count, int microseconds);
} // namespace Tesmo::Platform
