#pragma once

#include <Core/System/String.h>
#include <Discovery/Gateway/Platform/Adapters.h>

#include <map>
#include <string>
#include <vector>

namespace Zelkor::Discovery::Client
{
/// Which adapters of the host are stacked on which, by their display names: VLANs, bridges, bonds.
class AdapterStack
{
public:
    /// @param adapters  all of the host, as ReadAdapters lists them
    explicit AdapterStack(const std::vector<Platform::Adapter>& adapters);

    /// Whether upper stands on lower, directly or by way of others. False if each stands on the other: then adapters
    /// were changed while they were read.
    bool IsAbove(const Tesmo::System::String& upper, const Tesmo::System::String& lower) const;

private:
    bool LeadsDown(const std::string& from, const std::string& to) const;

    std::multimap<std::string, std::string> lowers; ///< by the upper adapter, those directly below it
};
} // namespace Zelkor::Discovery::Client
