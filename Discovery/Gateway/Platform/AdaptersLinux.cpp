#include "Adapters.h"

#include "Linux/LinkStack.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <linux/if_addr.h>
#include <linux/rtnetlink.h>
#include <map>
#include <memory>
#include <net/if.h>
#include <netlink/errno.h>
#include <netlink/msg.h>
#include <netlink/object.h>
#include <netlink/route/addr.h>
#include <netlink/route/link.h>
#include <netlink/route/route.h>
#include <netlink/socket.h>
#include <new>
#include <set>
#include <tuple>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

using Socket = std::unique_ptr<nl_sock, decltype(&nl_socket_free)>;
/// Fetches at most: one in which entries occur twice, since they changed meanwhile, is repeated (decision 137).
constexpr int MaximumFetches = 5;

/// Bytes that the kernel puts into one message of a dump at most (NLMSG_GOODSIZE's limit for readers that ask for it).
constexpr std::size_t MessageSize = 32768;

/// A request for all links without their counters.
struct LinkRequest
{
    ifinfomsg header = {};
    nlattr attribute = {sizeof(nlattr) + sizeof(std::uint32_t), IFLA_EXT_MASK};
    std::uint32_t mask = RTEXT_FILTER_SKIP_STATS;
};

/// An adapter, with the metric of its best gateway so far.
struct Entry
{
    Adapter adapter;
    bool up = false;
    std::uint32_t gatewayMetric = UINT32_MAX;
};
using Entries = std::map<int, Entry>; // by index

struct Snapshot
{
    Entries entries;
    bool hasDuplicates = false;
};

/// Asks the kernel for all objects of a kind, and visits each. Without a cache of libnl, which would hold them all, and
/// drops the second of two default routes that differ in the adapter alone.
/// @param type  RTM_GETLINK and the like
/// @returns 0, or libnl's code (netlink/errno.h), a positive number
template <class Item, class Request, class Visitor>
int Dump(nl_sock* socket, int type, Request request, Snapshot& snapshot, const Visitor& visit)
{
    struct Walk
    {
        const Visitor& visit;
        bool hasMemory = true; // no exception may pass through the library
    };
    const auto take = [](nl_object* object, void* data)
    {
        auto& walk = *static_cast<Walk*>(data);
        try
        {
            walk.visit(reinterpret_cast<Item*>(object));
        }
        catch (const std::bad_alloc&)
        {
            walk.hasMemory = false;
        }
    };
    static constexpr void (*visitor)(nl_object*, void*) = take;
    const auto parse = [](nl_msg* message, void* walk)
    {
        nl_msg_parse(message, visitor, walk);
        return static_cast<int>(NL_OK);
    };
    Walk walk = {visit};
    nl_socket_modify_cb(socket, NL_CB_VALID, NL_CB_CUSTOM, parse, &walk);
    const int sent = nl_send_simple(socket, type, NLM_F_DUMP, &request, sizeof(request));
    const int result = sent < 0 ? sent : nl_recvmsgs_default(socket);
    snapshot.hasDuplicates |= result == -NLE_DUMP_INTR; // changed meanwhile
    return !walk.hasMemory ? NLE_NOMEM : result == -NLE_DUMP_INTR ? 0 : -result;
}

void WriteText(const void* address, char (&text)[AdapterTextSize])
{
    inet_ntop(AF_INET, address, text, AdapterTextSize);
}

Entry MakeEntry(rtnl_link* link)
{
    Entry entry;
    entry.up = (rtnl_link_get_flags(link) & IFF_UP) != 0; // decision 133
    entry.adapter.index = static_cast<std::uint32_t>(rtnl_link_get_ifindex(link));
    const char* name = rtnl_link_get_name(link);
    entry.adapter.friendlyName = name == nullptr ? "" : name;
    if (nl_addr* hardware = rtnl_link_get_addr(link); hardware != nullptr)
    {
        entry.adapter.macLength = nl_addr_get_len(hardware);
        const auto* bytes = static_cast<const unsigned char*>(nl_addr_get_binary_addr(hardware));
        std::copy_n(bytes, std::min<std::uint32_t>(entry.adapter.macLength, AdapterAddressSize),
                    entry.adapter.macBytes);
    }
    return entry;
}

// decision 136
LinkPlace MakePlace(rtnl_link* link)
{
    LinkPlace place;
    place.master = rtnl_link_get_master(link);
    int foreignNamespace = 0;
    if (rtnl_link_get_link_netnsid(link, &foreignNamespace) != 0) // else the index counts there
    {
        place.lower = rtnl_link_get_link(link);
    }
    return place;
}

int FetchLinks(nl_sock* socket, Snapshot& snapshot)
{
    std::map<int, LinkPlace> places;
    const auto take = [&](rtnl_link* link)
    {
        const int index = rtnl_link_get_ifindex(link);
        snapshot.hasDuplicates |= !places.emplace(index, MakePlace(link)).second;
        // A bridge has its port's hardware address: if both were listed, a request would hit both (decision 134).
        if ((rtnl_link_get_flags(link) & IFF_LOOPBACK) == 0 && rtnl_link_get_master(link) == 0)
        {
            snapshot.entries.emplace(index, MakeEntry(link));
        }
    };
    const int result = Dump<rtnl_link>(socket, RTM_GETLINK, LinkRequest(), snapshot, take);
    for (const auto& [upper, lower] : FindStack(places))
    {
        if (const auto entry = snapshot.entries.find(upper); entry != snapshot.entries.end())
        {
            entry->second.adapter.lowerIndexes.push_back(static_cast<std::uint32_t>(lower));
        }
    }
    return result;
}

void TakeAddress(rtnl_addr* address, Adapter& adapter)
{
    if ((rtnl_addr_get_flags(address) & IFA_F_SECONDARY) != 0 || adapter.ipAddressText[0] != '\0')
    {
        return;
    }
    const int prefix = rtnl_addr_get_prefixlen(address);
    const in_addr mask = {htonl(prefix <= 0 ? 0 : UINT32_MAX << (32 - std::min(prefix, 32)))};
    WriteText(nl_addr_get_binary_addr(rtnl_addr_get_local(address)), adapter.ipAddressText);
    WriteText(&mask, adapter.ipMaskText);
}

int FetchAddresses(nl_sock* socket, Snapshot& snapshot)
{
    std::set<std::tuple<int, std::uint32_t, int>> seen;
    const auto take = [&](rtnl_addr* address)
    {
        nl_addr* local = rtnl_addr_get_local(address);
        if (local == nullptr || nl_addr_get_family(local) != AF_INET)
        {
            return;
        }
        const int index = rtnl_addr_get_ifindex(address);
        const auto* bytes = static_cast<const in_addr*>(nl_addr_get_binary_addr(local));
        const int prefix = rtnl_addr_get_prefixlen(address);
        snapshot.hasDuplicates |= !seen.emplace(index, bytes->s_addr, prefix).second;
        const auto entry = snapshot.entries.find(index);
        if (entry != snapshot.entries.end() && entry->second.up)
        {
            TakeAddress(address, entry->second.adapter);
        }
    };
    ifaddrmsg request = {};
    request.ifa_family = AF_INET;
    return Dump<rtnl_addr>(socket, RTM_GETADDR, request, snapshot, take);
}

bool IsDefaultRoute(rtnl_route* route)
{
    nl_addr* destination = rtnl_route_get_dst(route);
    return rtnl_route_get_table(route) == RT_TABLE_MAIN && rtnl_route_get_type(route) == RTN_UNICAST &&
           (destination == nullptr || nl_addr_get_prefixlen(destination) == 0);
}

void TakeGateway(rtnl_nexthop* hop, std::uint32_t metric, Entries& entries)
{
    nl_addr* gateway = rtnl_route_nh_get_gateway(hop);
    const auto found = entries.find(rtnl_route_nh_get_ifindex(hop));
    if (gateway == nullptr || nl_addr_get_family(gateway) != AF_INET || found == entries.end())
    {
        return;
    }
    Entry& entry = found->second;
    if (entry.adapter.gatewayText[0] == '\0' || metric < entry.gatewayMetric)
    {
        entry.gatewayMetric = metric;
        WriteText(nl_addr_get_binary_addr(gateway), entry.adapter.gatewayText);
    }
}

void TakeGateways(rtnl_route* route, Entries& entries)
{
    if (!IsDefaultRoute(route))
    {
        return;
    }
    for (int i = 0; i < rtnl_route_get_nnexthops(route); ++i)
    {
        TakeGateway(rtnl_route_nexthop_n(route, i), rtnl_route_get_priority(route), entries);
    }
}

int FetchGateways(nl_sock* socket, Snapshot& snapshot)
{
    rtmsg request = {};
    request.rtm_family = AF_INET;
    return Dump<rtnl_route>(socket, RTM_GETROUTE, request, snapshot,
                            [&](rtnl_route* route) { TakeGateways(route, snapshot.entries); });
}

/// @returns 0, or libnl's code, a positive number
int Fetch(nl_sock* socket, Snapshot& snapshot)
{
    for (const auto fetch : {FetchLinks, FetchAddresses, FetchGateways})
    {
        if (const int result = fetch(socket, snapshot); result != 0)
        {
            return result;
        }
    }
    return 0;
}

} // namespace

int ReadAdapters(std::vector<Adapter>& adapters)
{
    adapters.clear();
    const Socket socket(nl_socket_alloc(), nl_socket_free);
    if (socket == nullptr)
    {
        return ENOMEM;
    }
    if (const int result = nl_connect(socket.get(), NETLINK_ROUTE); result < 0)
    {
        return -result;
    }
    nl_socket_disable_msg_peek(socket.get()); // it would read each message twice
    nl_socket_set_msg_buf_size(socket.get(), MessageSize);
    Snapshot snapshot;
    for (int fetches = 0; fetches == 0 || (snapshot.hasDuplicates && fetches < MaximumFetches); ++fetches)
    {
        snapshot = Snapshot();
        if (const int result = Fetch(socket.get(), snapshot); result != 0)
        {
            return result;
        }
    }
    for (auto& [index, entry] : snapshot.entries)
    {
        adapters.push_back(std::move(entry.adapter));
    }
    return adapters.empty() ? ENODEV : 0;
}

} // namespace Zelkor::Discovery::Client::Platform
