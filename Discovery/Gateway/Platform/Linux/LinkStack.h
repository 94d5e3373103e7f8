#pragma once

#include <map>
#include <set>
#include <utility>

namespace Zelkor::Discovery::Client::Platform
{

/// The links that one is connected with, by their indexes in the kernel; 0: none.
struct LinkPlace
{
    int lower = 0;  ///< the link that it is made on (if_link.h: IFLA_LINK); for an end of a pair, the other end
    int master = 0; ///< the bridge or bond whose port it is
};

/// Which links without a master are stacked on which: pairs of indexes, the upper link first.
/// A port counts as its master: a VLAN of a port stands on the bridge, and a bridge whose ports are VLANs stands on the
/// adapters below all of them.
std::set<std::pair<int, int>> FindStack(const std::map<int, LinkPlace>& links);

} // namespace Zelkor::Discovery::Client::Platform
