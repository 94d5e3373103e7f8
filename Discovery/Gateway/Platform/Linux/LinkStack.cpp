#include "LinkStack.h"

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr int DeepestMasters = 8; ///< of a link; the kernel allows no more (netdevice.h: MAX_NEST_DEV)

int OutermostMaster(const std::map<int, LinkPlace>& links, int index)
{
    for (int depth = 0; depth < DeepestMasters; ++depth)
    {
        const auto link = links.find(index);
        if (link == links.end() || link->second.master == 0)
        {
            break;
        }
        index = link->second.master;
    }
    return index;
}

} // namespace

std::set<std::pair<int, int>> FindStack(const std::map<int, LinkPlace>& links)
{
    std::set<std::pair<int, int>> stack;
    for (const auto& [index, place] : links)
    {
        const auto lower = links.find(place.lower);
        if (lower == links.end() || lower->second.lower == index) // made on none, or an end of a pair
        {
            continue;
        }
        const int above = OutermostMaster(links, index);
        const int below = OutermostMaster(links, place.lower);
        if (above != below)
        {
            stack.emplace(above, below);
        }
    }
    return stack;
}

} // namespace Zelkor::Discovery::Client::Platform
