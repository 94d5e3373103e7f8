#pragma once

#include <string>
#include <vector>

namespace Tesmo::Platform
{
/// Room for the host's own name, in bytes.
constexpr int HostNameSize = 2048;

/// What the platform's name service knows of one host. Text is as the service gives it.
struct HostEntry
{
    std::string name; ///< at most 2048 bytes
    std::vector<std::string> aliases;
    std::vector<std::vector<unsigned char>> addresses; ///< 4 bytes each, or 16 (IPv6); at most 256
};

/// Looks a host up. The platform answers in a static area: the caller lets one look-up run at a time.
/// @returns false when there is no answer
bool FindHostByName(const std::string& name, HostEntry& entry);

/// @param address  4 bytes, or 16 (IPv6)
bool FindHostByAddress(const std::vector<unsigned char>& address, HostEntry& entry);

/// Reads the host's own name.
/// @returns 0 or a Windows Sockets error number
int ReadOwnHostName(std::string& name);
} // namespace Tesmo::Platform
