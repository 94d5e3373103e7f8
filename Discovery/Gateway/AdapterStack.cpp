#include "AdapterStack.h"

#include <algorithm>
#include <set>
#include <utility>

namespace Zelkor::Discovery::Client
{
using Tesmo::System::String;

AdapterStack::AdapterStack(const std::vector<Platform::Adapter>& adapters)
{
    std::map<std::uint32_t, std::string> names;
    for (const Platform::Adapter& adapter : adapters)
    {
        names.emplace(adapter.index, adapter.friendlyName);
    }
    for (const Platform::Adapter& adapter : adapters)
    {
        for (const std::uint32_t index : adapter.lowerIndexes)
        {
            if (const auto lower = names.find(index); lower != names.end())
            {
                lowers.emplace(adapter.friendlyName, lower->second);
            }
        }
    }
}

bool AdapterStack::IsAbove(const String& upper, const String& lower) const
{
    return LeadsDown(upper.Utf8(), lower.Utf8()) && !LeadsDown(lower.Utf8(), upper.Utf8());
}

bool AdapterStack::LeadsDown(const std::string& from, const std::string& to) const
{
    std::set<std::string> reached;
    std::vector<std::string> open = {from};
    while (!open.empty())
    {
        const auto [first, last] = lowers.equal_range(open.back());
        open.pop_back();
        std::for_each(first, last,
                      [&](const auto& pair)
                      {
                          if (reached.insert(pair.second).second)
                          {
                              open.push_back(pair.second);
                          }
                      });
    }
    return reached.contains(to);
}
} // namespace Zelkor::Discovery::Client
