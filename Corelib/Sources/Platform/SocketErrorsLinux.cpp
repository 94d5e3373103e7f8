#include "SocketErrorsLinux.h"

#include "Sockets.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace Tesmo::Platform
{
namespace
{
struct ErrorRow
{
    int error;
    int code;
};

constexpr ErrorRow errors[] = {
    {EINTR, SocketInterrupted},
    {EPERM, SocketAccessDenied}, // a firewall refused a send
    {EACCES, SocketAccessDenied},
    {EFAULT, SocketFault},
    {EINVAL, SocketInvalidArgument},
    {EMFILE, SocketTooManyOpen},
    {ENFILE, SocketTooManyOpen},
    {EAGAIN, SocketWouldBlock},
    {EINPROGRESS, SocketInProgress},
    {EALREADY, SocketAlreadyInProgress},
    {EBADF, SocketNotSocket},
    {ENOTSOCK, SocketNotSocket},
    {EDESTADDRREQ, SocketDestinationRequired},
    {EMSGSIZE, SocketMessageSize},
    {EPROTOTYPE, SocketProtocolType},
    {ENOPROTOOPT, SocketProtocolOption},
    {EPROTONOSUPPORT, SocketProtocolNotSupported},
    {ESOCKTNOSUPPORT, SocketTypeNotSupported},
    {EOPNOTSUPP, SocketNotSupported},
    {EAFNOSUPPORT, SocketFamilyNotSupported},
    {EADDRINUSE, SocketAddressInUse},
    {EADDRNOTAVAIL, SocketAddressNotAvailable},
    {ENODEV, SocketAddressNotAvailable},
    {ENETDOWN, SocketNetworkDown},
    {ENETUNREACH, SocketNetworkUnreachable},
    {ENETRESET, SocketNetworkReset},
    {ECONNABORTED, SocketConnectionAborted},
    {ECONNRESET, SocketConnectionReset},
    {ECONNREFUSED, SocketConnectionReset}, // on a datagram socket: port unreachable
    {ENOBUFS, SocketNoBufferSpace},
    {ENOMEM, SocketNoBufferSpace},
    {EISCONN, SocketIsConnected},
    {ENOTCONN, SocketNotConnected},
    {EPIPE, SocketShutDown},
    {ETIMEDOUT, SocketTimedOut},
    {EHOSTDOWN, SocketHostDown},
    {EHOSTUNREACH, SocketHostUnreachable},
};
} // namespace

int SocketErrorOf(int error)
{
    const auto* row = std::find_if(std::begin(errors), std::end(errors),
                                   [error](const ErrorRow& candidate) { return candidate.error == error; });
    return row == std::end(errors) ? SocketInvalidArgument : row->code;
}
} // namespace Tesmo::Platform
