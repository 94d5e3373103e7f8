#include "NativeSocketLinux.h"
#include "RoadsLinux.h"
#include "SocketErrorsLinux.h"

#include <linux/errqueue.h>
#include <netinet/icmp6.h>
#include <netinet/ip_icmp.h>

#include <cerrno>
#include <iterator>
#include <optional>

namespace Tesmo::Platform
{
namespace
{
/// How often one datagram is tried while reports of earlier ones make its send fail.
constexpr int MaxSendAttempts = 8;
/// Reports taken out in one go; a receive buffer of 65536 bytes holds 157 of them.
constexpr int MaxReportsAtOnce = 1024;

/// True for the errors that report what became of an earlier datagram (icmp(7)). A call of a datagram socket that fails
/// with one has neither sent nor received anything.
bool IsReport(int error)
{
    constexpr int reports[] = {ECONNREFUSED, EHOSTUNREACH, ENETUNREACH, EHOSTDOWN, ENONET,
                               EMSGSIZE,     ENOPROTOOPT,  EOPNOTSUPP,  EPROTO,    EACCES};
    return std::find(std::begin(reports), std::end(reports), error) != std::end(reports);
}

// decision 92
bool TellsOfClosedPort(msghdr& message)
{
    for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr; part = CMSG_NXTHDR(&message, part))
    {
        const bool isV4 = part->cmsg_level == IPPROTO_IP && part->cmsg_type == IP_RECVERR;
        const bool isV6 = part->cmsg_level == IPPROTO_IPV6 && part->cmsg_type == IPV6_RECVERR;
        if (isV4 || isV6)
        {
            sock_extended_err report;
            std::memcpy(&report, CMSG_DATA(part), sizeof(report));
            return report.ee_origin == SO_EE_ORIGIN_ICMP
                       ? report.ee_type == ICMP_DEST_UNREACH && report.ee_code == ICMP_PORT_UNREACH
                       : report.ee_origin == SO_EE_ORIGIN_ICMP6 && report.ee_type == ICMP6_DST_UNREACH &&
                             report.ee_code == ICMP6_DST_UNREACH_NOPORT;
        }
    }
    return false;
}

bool TakePortUnreachable(NativeSocket& socket)
{
    return socket.portUnreachable.load() && socket.portUnreachable.exchange(false);
}

bool HasPort(NativeSocket& socket)
{
    NativeAddress bound;
    if (!socket.hasPort && ::getsockname(socket.descriptor, bound.Receiver(), &bound.length) == 0)
    {
        socket.hasPort = bound.HasPort();
    }
    return socket.hasPort;
}

/// A datagram, or bytes of a stream, on the way out.
struct Outgoing
{
    const unsigned char* data;
    int size;
    int flags;
    const NativeAddress& target;
};

ssize_t SendOnce(const NativeSocket& socket, const Outgoing& outgoing)
{
    const NativeAddress& target = outgoing.target;
    return ::sendto(socket.descriptor, outgoing.data, static_cast<std::size_t>(outgoing.size), outgoing.flags,
                    target.Get(), target.length);
}

ssize_t SendOnceBy(const Road& road, const NativeSocket& socket, const Outgoing& outgoing)
{
    alignas(cmsghdr) unsigned char control[CMSG_SPACE(sizeof(in_pktinfo))] = {};
    iovec part = {const_cast<unsigned char*>(outgoing.data), static_cast<std::size_t>(outgoing.size)};
    msghdr message = {};
    message.msg_name = const_cast<sockaddr*>(outgoing.target.Get());
    message.msg_namelen = outgoing.target.length;
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof(control);
    cmsghdr* const header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = IPPROTO_IP;
    header->cmsg_type = IP_PKTINFO;
    header->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
    in_pktinfo info = {};
    info.ipi_ifindex = static_cast<int>(road.interface);
    info.ipi_spec_dst = road.source;
    std::memcpy(CMSG_DATA(header), &info, sizeof(info));
    return ::sendmsg(socket.descriptor, &message, outgoing.flags);
}

/// Sends, by a road if one is given. Tries again after a signal or the report of an earlier datagram.
/// @param sent  receives the number of bytes sent
/// @returns 0 or an errno
int Send(NativeSocket& socket, const Call& call, const Outgoing& outgoing, const std::optional<Road>& road, int& sent)
{
    for (int attempt = 0;;)
    {
        const ssize_t result = road ? SendOnceBy(*road, socket, outgoing) : SendOnce(socket, outgoing);
        const int error = errno;
        if (result >= 0 || (error == ENOBUFS && socket.datagram))
        {
            // ENOBUFS: the interface's queue was full, which is told only to those who ask for reports (decision 93)
            sent = result >= 0 ? static_cast<int>(result) : outgoing.size;
            return 0;
        }
        if (error == EINTR && call.End(SendingDirection) == 0)
        {
            continue;
        }
        const bool drained = socket.datagram && DrainReports(socket);
        const bool mayBeReport = socket.datagram && IsReport(error) && (drained || attempt == 0);
        if (!mayBeReport || ++attempt == MaxSendAttempts)
        {
            return error;
        }
    }
}

/// True for the errors that say that no route leads to the target, or one that refuses (ip-route(8): unreachable,
/// prohibit, blackhole).
bool IsRefusedByRoute(int error)
{
    return error == ENETUNREACH || error == EHOSTUNREACH || error == EACCES || error == EINVAL;
}

bool IsLimitedBroadcast(const NativeAddress& target)
{
    return target.IsIPv4() && target.IPv4().s_addr == INADDR_BROADCAST;
}

bool IsBoundToNoAddress(const NativeSocket& socket)
{
    NativeAddress local;
    return ReadLocalAddress(socket, local) == 0 && local.IsIPv4() && local.IPv4().s_addr == INADDR_ANY;
}

/// The error number of a send that failed, and not by a report of an earlier datagram (decision 96).
int SendErrorOf(const NativeSocket& socket, int error, const NativeAddress& target)
{
    if (error == EAGAIN)
    {
        return socket.blocking ? SocketTimedOut : SocketWouldBlock;
    }
    if (!socket.datagram || !(IsRefusedByRoute(error) || error == EPERM)) // EPERM: a firewall refused it
    {
        return SocketErrorOf(error);
    }
    if (error == EINVAL && target.IsIPv4() && !target.HasPort())
    {
        return SocketAddressNotAvailable;
    }
    // EACCES for a broadcast: the option to broadcast is not set
    return error == EACCES && target.IsIPv4() && IsBroadcast(target.IPv4()) ? SocketAccessDenied
                                                                            : SocketNetworkUnreachable;
}
} // namespace

bool DrainReports(NativeSocket& socket)
{
    int count = 0;
    for (; count < MaxReportsAtOnce; ++count)
    {
        alignas(cmsghdr) unsigned char control[256];
        msghdr message = {};
        message.msg_control = control;
        message.msg_controllen = sizeof(control);
        if (::recvmsg(socket.descriptor, &message, MSG_ERRQUEUE | MSG_DONTWAIT) < 0)
        {
            break;
        }
        if (TellsOfClosedPort(message))
        {
            socket.portUnreachable = true;
        }
    }
    return count > 0;
}

int SendSocket(NativeSocket& socket, const unsigned char* data, int size, int flags, const unsigned char* address,
               int addressSize, int& sent)
{
    const Call call(socket);
    const NativeAddress target(address, addressSize);
    if (call.Refused() || !target.IsUsable() || (flags & ~(MSG_OOB | MSG_DONTROUTE)) != 0)
    {
        return call.Refused() ? SocketNotSocket : !target.IsUsable() ? SocketFault : SocketNotSupported;
    }
    const Outgoing outgoing = {data, size, flags | MSG_NOSIGNAL, target};
    std::optional<Road> road;
    if (const in_addr source = {socket.source}; source.s_addr != INADDR_ANY && target.IsIPv4())
    {
        road = FindRoad(source, target.IPv4());
        if (!road)
        {
            return SocketNetworkUnreachable;
        }
    }
    int error = Send(socket, call, outgoing, road, sent);
    if (IsRefusedByRoute(error) && !road && IsLimitedBroadcast(target) && IsBoundToNoAddress(socket))
    {
        road = FindBroadcastRoad();
        error = road ? Send(socket, call, outgoing, road, sent) : ENETUNREACH;
    }
    const int end = error == 0 ? 0 : call.End(SendingDirection);
    return end != 0 ? end : error == 0 ? 0 : SendErrorOf(socket, error, target);
}

int ReceiveSocket(NativeSocket& socket, unsigned char* buffer, int size, int flags,
                  unsigned char (&address)[SocketAddressSize], int& addressSize, int& received)
{
    const Call call(socket);
    const int allowed = socket.datagram ? MSG_PEEK : MSG_PEEK | MSG_OOB;
    if (call.Refused() || (flags & ~allowed) != 0)
    {
        return call.Refused() ? SocketNotSocket : SocketNotSupported;
    }
    if (socket.datagram && call.End(ReceivingDirection) == 0 && !HasPort(socket))
    {
        return SocketInvalidArgument; // nothing can come; the kernel would wait for ever (decision 95)
    }
    for (;;)
    {
        if (call.End(ReceivingDirection) == 0 && TakePortUnreachable(socket))
        {
            return SocketConnectionReset;
        }
        NativeAddress sender;
        const ssize_t result = ::recvfrom(socket.descriptor, buffer, static_cast<std::size_t>(size),
                                          flags | (socket.datagram ? MSG_TRUNC : 0), sender.Receiver(), &sender.length);
        const int error = errno;
        if (const int end = call.End(ReceivingDirection); end != 0)
        {
            return end; // even with data: after a shut-down, too, the kernel hands out what is queued
        }
        if (result == 0 && socket.datagram && sender.length == 0)
        {
            return SocketShutDown; // by another holder of the socket; an empty datagram would have a sender
        }
        if (result >= 0)
        {
            sender.Give(address, addressSize);
            received = static_cast<int>(std::min<ssize_t>(result, size));
            return result > size ? SocketMessageSize : 0;
        }
        if (socket.datagram && IsReport(error))
        {
            DrainReports(socket);
        }
        else if (error != EINTR)
        {
            return error != EAGAIN ? SocketErrorOf(error) : socket.blocking ? SocketTimedOut : SocketWouldBlock;
        }
    }
}
} // namespace Tesmo::Platform
