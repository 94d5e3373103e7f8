#pragma once

#include <netinet/in.h>

#include <optional>

namespace Tesmo::Platform
{
/// A way out of this host: an interface, and the address of the host to send from.
struct Road
{
    unsigned interface = 0; ///< its index; 0 leaves the choice to the kernel
    in_addr source = {};
};

/// The road for a broadcast without a route: the first interface, in ascending index, that is up, can
/// broadcast and has an IPv4 address (one with a carrier before one without); only where there is none, loopback.
std::optional<Road> FindBroadcastRoad();

/// The road from an address of this host to a target: by an interface that has the address and a route to the target,
/// or no road. Broadcasts need no route; what goes to this host itself does not leave by an interface.
std::optional<Road> FindRoad(in_addr source, in_addr target);

/// True for an address of this host.
bool IsLocal(in_addr address);

/// True for 255.255.255.255 and for the broadcast address of a network that this host is in.
bool IsBroadcast(in_addr address);
} // namespace Tesmo::Platform
