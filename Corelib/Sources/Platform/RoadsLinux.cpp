#include "RoadsLinux.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <sys/socket.h>
#include <unistd.h>

#include <linux/if.h> // after net/if.h, which it completes
#include <linux/rtnetlink.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace Tesmo::Platform
{
namespace
{
/// What the kernel says of the route to an address.
struct Route
{
    unsigned char type = RTN_UNSPEC; ///< RTN_...; RTN_UNSPEC: no route, or one that refuses
    unsigned interface = 0;          ///< index
};

/// A question to the kernel's routing tables (rtnetlink(7)).
struct Question
{
    nlmsghdr header = {};
    rtmsg subject = {};
    rtattr targetHeader = {sizeof(rtattr) + sizeof(in_addr), RTA_DST};
    in_addr target = {};
    rtattr sourceHeader = {sizeof(rtattr) + sizeof(in_addr), RTA_SRC};
    in_addr source = {};
    rtattr interfaceHeader = {sizeof(rtattr) + sizeof(unsigned), RTA_OIF};
    unsigned interface = 0;
};

Route ReadRoute(const unsigned char* answer, std::size_t size)
{
    Route route;
    nlmsghdr header;
    std::memcpy(&header, answer, std::min(size, sizeof(header)));
    if (size < NLMSG_SPACE(sizeof(rtmsg)) || header.nlmsg_type != RTM_NEWROUTE)
    {
        return route;
    }
    rtmsg subject;
    std::memcpy(&subject, answer + NLMSG_HDRLEN, sizeof(subject));
    route.type = subject.rtm_type;
    rtattr attribute;
    for (std::size_t at = NLMSG_SPACE(sizeof(rtmsg)); at + sizeof(attribute) + sizeof(unsigned) <= size;
         at += std::max<std::size_t>(RTA_ALIGN(attribute.rta_len), sizeof(attribute)))
    {
        std::memcpy(&attribute, answer + at, sizeof(attribute));
        if (attribute.rta_type == RTA_OIF)
        {
            std::memcpy(&route.interface, answer + at + sizeof(attribute), sizeof(route.interface));
        }
    }
    return route;
}

/// The kernel's routing tables, asked over one socket. If it cannot be opened, nothing has a route.
class RoutingTables
{
public:
    RoutingTables() : descriptor(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, NETLINK_ROUTE)) {}

    ~RoutingTables()
    {
        if (descriptor >= 0)
        {
            ::close(descriptor);
        }
    }

    RoutingTables(const RoutingTables&) = delete;
    RoutingTables& operator=(const RoutingTables&) = delete;

    /// The route that a datagram to target takes.
    Route Find(in_addr target, in_addr source = {}) const
    {
        return Ask(target, source, 0, 0);
    }

    /// The table entry that matches; only one of the interface, if its index is not 0. Without RTM_F_FIB_MATCH the
    /// kernel takes a target that the interface has no route to for a neighbour there.
    Route Match(in_addr target, in_addr source, unsigned interface) const
    {
        return Ask(target, source, interface, RTM_F_FIB_MATCH);
    }

    /// The first interface that has the address; 0 if it is no address of this host.
    unsigned OwnerOf(in_addr address) const
    {
        const Route route = Match(address, {}, 0);
        return route.type == RTN_LOCAL ? route.interface : 0;
    }

    bool IsOwner(unsigned interface, in_addr address) const
    {
        return Match(address, {}, interface).type == RTN_LOCAL;
    }

private:
    Route Ask(in_addr target, in_addr source, unsigned interface, unsigned flags) const
    {
        Question question;
        question.header.nlmsg_len = sizeof(question);
        question.header.nlmsg_type = RTM_GETROUTE;
        question.header.nlmsg_flags = NLM_F_REQUEST;
        question.subject.rtm_family = AF_INET;
        question.subject.rtm_dst_len = 32;
        question.subject.rtm_src_len = 32;
        question.subject.rtm_flags = flags;
        question.target = target;
        question.source = source;
        question.interface = interface;
        unsigned char answer[4096];
        if (::send(descriptor, &question, sizeof(question), 0) < 0)
        {
            return {};
        }
        const ssize_t size = ::recv(descriptor, answer, sizeof(answer), 0);
        return size < 0 ? Route() : ReadRoute(answer, static_cast<std::size_t>(size));
    }

    const int descriptor;
};

/// An interface to broadcast by; the lower the rank, the better.
struct BroadcastInterface
{
    int rank = 3;
    Road road;
};

BroadcastInterface MakeBroadcastInterface(const ifaddrs& entry, const RoutingTables& tables)
{
    BroadcastInterface made;
    if (entry.ifa_addr == nullptr || entry.ifa_addr->sa_family != AF_INET || (entry.ifa_flags & IFF_UP) == 0)
    {
        return made;
    }
    const bool canBroadcast = (entry.ifa_flags & IFF_BROADCAST) != 0;
    const bool hasCarrier = (entry.ifa_flags & IFF_LOWER_UP) != 0;
    const bool isLoopback = (entry.ifa_flags & IFF_LOOPBACK) != 0;
    made.rank = isLoopback ? 2 : canBroadcast ? (hasCarrier ? 0 : 1) : 3;
    made.road.source = reinterpret_cast<const sockaddr_in*>(entry.ifa_addr)->sin_addr;
    made.road.interface = tables.OwnerOf(made.road.source); // not the entry's name, which is any label
    return made;
}
} // namespace

// decision 91
std::optional<Road> FindBroadcastRoad()
{
    BroadcastInterface best;
    ifaddrs* first = nullptr;
    if (::getifaddrs(&first) != 0)
    {
        return std::nullopt;
    }
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(first, &::freeifaddrs);
    const RoutingTables tables;
    for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next)
    {
        const BroadcastInterface found = MakeBroadcastInterface(*entry, tables);
        const bool isBetter =
            found.rank < best.rank || (found.rank == best.rank && found.road.interface < best.road.interface);
        if (isBetter && found.road.interface != 0)
        {
            best = found;
        }
    }
    return best.road.interface == 0 ? std::nullopt : std::optional(best.road);
}

// decision 98
std::optional<Road> FindRoad(in_addr source, in_addr target)
{
    if (target.s_addr == INADDR_BROADCAST)
    {
        return Road{0, source}; // the kernel chooses the interface that has the source
    }
    const RoutingTables tables;
    const Route usual = tables.Find(target, source);
    if (usual.type == RTN_LOCAL)
    {
        return Road{0, source};
    }
    const unsigned owner = tables.OwnerOf(source);
    if (usual.interface != 0 && (usual.interface == owner || tables.IsOwner(usual.interface, source)))
    {
        return Road{usual.interface, source}; // if interfaces share the source, the usual one is taken
    }
    const bool hasRoute = owner != 0 && tables.Match(target, source, owner).type != RTN_UNSPEC;
    return hasRoute ? std::optional(Road{owner, source}) : std::nullopt;
}

bool IsLocal(in_addr address)
{
    return RoutingTables().Find(address).type == RTN_LOCAL;
}

bool IsBroadcast(in_addr address)
{
    return address.s_addr == INADDR_BROADCAST || RoutingTables().Find(address).type == RTN_BROADCAST;
}
} // namespace Tesmo::Platform
