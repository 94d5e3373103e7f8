#pragma once

#include <Core/System/String.h>
#include <Discovery/Gateway/Platform/Adapters.h>

#include <map>
#include <string>
#include <vector>

namespace Zelkor::Discovery::Client
{
/// Which adapters of the host are stacked on which, by their display names. A snapshot.
class AdapterStack
{
public:
    explicit AdapterStack(const std::vector<Platform::Adapter>& adapters);

    /// Whether upper stands on lower, directly or over others. False where each stands on the other, which no host can
    /// mean: adapters were changed while they were read.
    bool IsAbove(const Tesmo::System::String& upper, const Tesmo::System::String& lower) const;

private:
    bool LeadsDown(const std::string& from, const std::string& to) const;

    std::multimap<std::string, std::string> lowers; ///< of each adapter those that it is stacked on
};
} // namespace Zelkor::Discovery::Client
