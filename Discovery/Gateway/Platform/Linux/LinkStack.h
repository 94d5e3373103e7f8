#pragma once

#include <map>
#include <set>
#include <utility>

namespace Zelkor::Discovery::Client::Platform
{

/// How a link stands to others, each by the kernel's number of it; 0: to none.
struct LinkPlace
{
    int lower = 0;  ///< the link that it is made on (if_link.h: IFLA_LINK); of the two ends of a pair, the other one
    int master = 0; ///< the bridge or bond whose port it is
};

/// Which links without a master are stacked on which: pairs of numbers, that of the upper one and that of one below it.
/// A port counts as its master, so that a VLAN of a port stands on the bridge, and a bridge with VLANs as its ports on
/// the adapters of them all.
std::set<std::pair<int, int>> FindStack(const std::map<int, LinkPlace>& links);

} // namespace Zelkor::Discovery::Client::Platform
