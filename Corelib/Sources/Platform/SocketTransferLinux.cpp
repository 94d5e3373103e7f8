#include "Platform/NativeSocketLinux.h"
#include "Platform/SocketErrorsLinux.h"

#include <ifaddrs.h>
#include <linux/errqueue.h>
#include <net/if.h>
#include <netinet/icmp6.h>
#include <netinet/ip_icmp.h>

#include <cerrno>
#include <iterator>
#include <memory>

namespace Tesmo::Platform
{
namespace
{
/// Sends of one datagram that may fail over reports of earlier ones before the failure is passed on.
constexpr int MaxSendAttempts = 8;
/// Reports taken out at once; a receive buffer of 65536 bytes holds 157 of them.
constexpr int MaxReportsAtOnce = 1024;

/// True for the errors that report the fate of an earlier datagram (icmp(7)); a call of a datagram socket that fails
/// so has done nothing else.
bool IsReport(int error)
{
    constexpr int reports[] = {ECONNREFUSED, EHOSTUNREACH, ENETUNREACH, EHOSTDOWN, ENONET,
                               EMSGSIZE,     ENOPROTOOPT,  EOPNOTSUPP,  EPROTO,    EACCES};
    return std::find(std::begin(reports), std::end(reports), error) != std::end(reports);
}

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

/// An interface to broadcast by; the lower the rank, the better.
struct BroadcastInterface
{
    int rank = 3;
    unsigned index = 0;
    in_addr address = {};
};

BroadcastInterface MakeBroadcastInterface(const ifaddrs& entry)
{
    BroadcastInterface made;
    if (entry.ifa_addr == nullptr || entry.ifa_addr->sa_family != AF_INET || (entry.ifa_flags & IFF_UP) == 0)
    {
        return made;
    }
    const bool canBroadcast = (entry.ifa_flags & IFF_BROADCAST) != 0;
    const bool hasCarrier = (entry.ifa_flags & IFF_RUNNING) != 0;
    const bool isLoopback = (entry.ifa_flags & IFF_LOOPBACK) != 0;
    made.rank = isLoopback ? 2 : canBroadcast ? (hasCarrier ? 0 : 1) : 3;
    made.index = ::if_nametoindex(entry.ifa_name);
    made.address = reinterpret_cast<const sockaddr_in*>(entry.ifa_addr)->sin_addr;
    return made;
}

BroadcastInterface FindBroadcastInterface()
{
    BroadcastInterface best;
    ifaddrs* first = nullptr;
    if (::getifaddrs(&first) != 0)
    {
        return best;
    }
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(first, &::freeifaddrs);
    for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next)
    {
        const BroadcastInterface found = MakeBroadcastInterface(*entry);
        if (found.rank < best.rank || (found.rank == best.rank && found.index < best.index))
        {
            best = found;
        }
    }
    return best;
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

bool IsBoundToNoAddress(const NativeSocket& socket)
{
    NativeAddress bound;
    return ::getsockname(socket.descriptor, bound.Receiver(), &bound.length) == 0 && bound.IsAnyIPv4();
}

/// Sends to the limited broadcast address by an interface of our own choice, for want of a route.
ssize_t SendByInterface(const NativeSocket& socket, const unsigned char* data, int size, int flags,
                        const NativeAddress& target)
{
    const BroadcastInterface by = FindBroadcastInterface();
    if (by.index == 0)
    {
        errno = ENETUNREACH;
        return -1;
    }
    alignas(cmsghdr) unsigned char control[CMSG_SPACE(sizeof(in_pktinfo))] = {};
    iovec part = {const_cast<unsigned char*>(data), static_cast<std::size_t>(size)};
    msghdr message = {};
    message.msg_name = const_cast<sockaddr*>(target.Get());
    message.msg_namelen = target.length;
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof(control);
    cmsghdr* const header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = IPPROTO_IP;
    header->cmsg_type = IP_PKTINFO;
    header->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
    in_pktinfo info = {};
    info.ipi_ifindex = static_cast<int>(by.index);
    info.ipi_spec_dst = by.address;
    std::memcpy(CMSG_DATA(header), &info, sizeof(info));
    return ::sendmsg(socket.descriptor, &message, flags);
}

ssize_t SendOnce(const NativeSocket& socket, const unsigned char* data, int size, int flags,
                 const NativeAddress& target)
{
    const ssize_t result =
        ::sendto(socket.descriptor, data, static_cast<std::size_t>(size), flags, target.Get(), target.length);
    if (result < 0 && errno == ENETUNREACH && target.IsLimitedBroadcast() && IsBoundToNoAddress(socket))
    {
        return SendByInterface(socket, data, size, flags, target);
    }
    return result;
}

/// The error number of a send that failed for a reason of its own.
int SendErrorOf(const NativeSocket& socket, int error)
{
    if (error == EAGAIN)
    {
        return socket.blocking ? SocketTimedOut : SocketWouldBlock;
    }
    // no road from this local address, or a route that leads nowhere
    return error == EINVAL && socket.datagram ? SocketAddressNotAvailable : SocketErrorOf(error);
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
    for (int attempt = 0;;)
    {
        const ssize_t result = SendOnce(socket, data, size, flags | MSG_NOSIGNAL, target);
        const int error = errno;
        if (result >= 0 || (error == ENOBUFS && socket.datagram))
        {
            // ENOBUFS: lost in a full queue of the interface, which is told only because we ask for reports
            sent = result >= 0 ? static_cast<int>(result) : size;
            return 0;
        }
        if (const int end = call.End(SendingDirection); end != 0)
        {
            return end;
        }
        if (error == EINTR)
        {
            continue;
        }
        const bool drained = socket.datagram && DrainReports(socket);
        const bool mayBeReport = socket.datagram && IsReport(error) && (drained || attempt == 0);
        if (!mayBeReport || ++attempt == MaxSendAttempts)
        {
            return SendErrorOf(socket, error);
        }
    }
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
        return SocketInvalidArgument; // nothing can come; the kernel would wait for ever
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
            return end; // whatever came: the kernel hands out what is queued even after a shut-down
        }
        if (result == 0 && socket.datagram && sender.length == 0)
        {
            return SocketShutDown; // by somebody who holds the same socket; an empty datagram has a sender
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
