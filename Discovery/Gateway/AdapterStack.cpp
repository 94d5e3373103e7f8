#include "AdapterStack.h"

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
        if (const auto lower = names.find(adapter.lowerIndex); lower != names.end())
        {
            lowers.emplace(adapter.friendlyName, lower->second);
        }
    }
}

bool AdapterStack::IsAbove(const String& upper, const String& lower) const
{
    return LeadsDown(upper.Utf8(), lower.Utf8()) && !LeadsDown(lower.Utf8(), upper.Utf8());
}

bool AdapterStack::LeadsDown(std::string from, const std::string& to) const
{
    for (std::size_t steps = 0; steps < lowers.size(); ++steps)
    {
        const auto lower = lowers.find(from);
        if (lower == lowers.end())
        {
            return false;
        }
        from = lower->second;
        if (from == to)
        {
            return true;
        }
    }
    return false;
}
} // namespace Zelkor::Discovery::Client
