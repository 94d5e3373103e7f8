#pragma once

#include <map>

namespace Zelkor::Discovery::Platform
{

/// How a link stands to others, each by the kernel's number of it; 0: to none.
struct LinkPlace
{
    int lower = 0;  ///< the link that it is made on (if_link.h: IFLA_LINK); of the two ends of a pair, the other one
    int master = 0; ///< the bridge or bond whose port it is
};

/// Which links without a master are stacked on which, by number: an upper one maps to the one below it. A port counts as
/// its master, so that a VLAN of a port stands on the bridge, and a bridge with a VLAN as its port on the VLAN's adapter.
std::map<int, int> FindStack(const std::map<int, LinkPlace>& links);

} // namespace Zelkor::Discovery::Platform
