#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Zelkor::Discovery::Client::Platform
{

constexpr int AdapterAddressSize = 8; ///< bytes (iptypes.h: MAX_ADAPTER_ADDRESS_LENGTH)
constexpr int AdapterTextSize = 16;   ///< bytes of a dotted IPv4 text with its closing zero

/// One network adapter as the host describes it, with its first IPv4 address alone.
struct Adapter
{
    unsigned char macBytes[AdapterAddressSize] = {}; ///< the first bytes of the hardware address, the rest zero
    std::uint32_t macLength = 0;                     ///< bytes of the whole hardware address; may exceed the field's 8
    char ipAddressText[AdapterTextSize] = {};        ///< dotted text, or empty
    char ipMaskText[AdapterTextSize] = {};           ///< dotted text, or empty
    char gatewayText[AdapterTextSize] = {};          ///< dotted text, empty if the adapter has no gateway
    std::uint32_t index = 0;                         ///< the host's number of the adapter
    std::vector<std::uint32_t> lowerIndexes;         ///< those of the listed adapters directly below it, as for a VLAN
    std::string friendlyName;                        ///< display name as bytes, empty if unknown
};

/// Lists the host's adapters as they stand now. Any thread, several at once.
/// Linux: by ascending index. Loopback and the ports of bridges and bonds are left out; what is stacked on a port
/// counts as stacked on its bridge or bond. An adapter that is down or has no IPv4 address is listed with empty texts.
/// Win32: in the order of GetAdaptersInfo.
/// @param adapters  receives at least one record on success, is empty on failure
/// @returns 0, or a failure: the platform's code where it gives one; a host without any adapter counts as a failure
int ReadAdapters(std::vector<Adapter>& adapters);

} // namespace Zelkor::Discovery::Client::Platform
