#pragma once

#include "HostNames.h"

#include <algorithm>
#include <cstring>

namespace Tesmo::Platform
{
/// Copies the platform's hostent, which has the same fields on both platforms.
/// @returns false when found is a null pointer
template <class HostEnt>
bool CopyHostEntry(const HostEnt* found, HostEntry& entry)
{
    constexpr std::size_t maxName = 2048;
    constexpr std::size_t maxAddresses = 256;
    if (found == nullptr)
    {
        return false;
    }
    entry = {};
    entry.name.assign(found->h_name, std::min(std::strlen(found->h_name), maxName));
    for (auto alias = found->h_aliases; alias != nullptr && *alias != nullptr; ++alias)
    {
        entry.aliases.emplace_back(*alias);
    }
    for (auto address = found->h_addr_list;
         address != nullptr && *address != nullptr && entry.addresses.size() < maxAddresses; ++address)
    {
        const auto* const bytes = reinterpret_cast<const unsigned char*>(*address);
        entry.addresses.emplace_back(bytes, bytes + found->h_length);
    }
    return true;
}
} // namespace Tesmo::Platform
