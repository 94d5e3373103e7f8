#include "AddressPlan.h"

#include <arpa/inet.h>
#include <bit>
#include <cstdint>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

/// @param number  receives the address in the host's byte order
bool Parse(const std::string& text, std::uint32_t& number)
{
    in_addr address = {};
    const bool parsed = inet_pton(AF_INET, text.c_str(), &address) == 1;
    number = ntohl(address.s_addr);
    return parsed;
}

std::string Text(std::uint32_t number)
{
    const in_addr address = {htonl(number)};
    char text[INET_ADDRSTRLEN] = {};
    inet_ntop(AF_INET, &address, text, sizeof(text));
    return text;
}

/// Whether a mask is ones, then zeros, at least one of each: without a zero the host is cut off.
bool IsMask(std::uint32_t mask)
{
    const int ones = std::countl_one(mask);
    return ones > 0 && ones < 32 && (mask << ones) == 0;
}

/// Whether an address can belong to one host (RFC 1122, section 3.2.1.3).
bool IsUnicast(std::uint32_t address)
{
    const std::uint32_t first = address >> 24;
    return first != 0 && first != 127 && first < 224;
}

/// Whether an address is neither that of its subnet nor its broadcast address; a subnet of two hosts has none of the
/// two (RFC 3021).
bool IsHostIn(std::uint32_t address, std::uint32_t mask)
{
    const std::uint32_t host = address & ~mask;
    return ~mask == 1 || (host != 0 && host != ~mask);
}

bool IsNeighbour(std::uint32_t gateway, std::uint32_t address, std::uint32_t mask)
{
    return gateway != address && ((gateway ^ address) & mask) == 0 && IsHostIn(gateway, mask);
}

} // namespace

// decision 157
Failure MakePlan(const AdapterSettings& settings, AddressPlan& plan)
{
    std::uint32_t address = 0;
    std::uint32_t mask = 0;
    std::uint32_t gateway = 0;
    if (settings.adapterName.empty() || settings.adapterName.front() == '-')
    {
        return Failure("the adapter's name would be taken for an option");
    }
    if (!Parse(settings.ipMaskText, mask) || !IsMask(mask))
    {
        return Failure("not a mask with neighbours: " + settings.ipMaskText);
    }
    if (!Parse(settings.ipAddressText, address) || !IsUnicast(address) || !IsHostIn(address, mask))
    {
        return Failure("not the address of a host in its subnet: " + settings.ipAddressText);
    }
    const bool hasText = !settings.gatewayText.empty();
    if (hasText && (!Parse(settings.gatewayText, gateway) || (gateway != 0 && !IsNeighbour(gateway, address, mask))))
    {
        return Failure("the gateway is no neighbour in the subnet: " + settings.gatewayText);
    }
    plan = {settings.adapterName, Text(address), Text(mask), gateway == 0 ? "" : Text(gateway), std::countl_one(mask)};
    return {};
}

} // namespace Zelkor::Discovery::Client::Platform
