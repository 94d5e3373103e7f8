#pragma once

#include <cstdint>
#include <optional>

namespace Zelkor::Discovery::Client::Platform
{

/// Reads the machine's identity number, which other software puts there. Any thread.
/// Linux: one unsigned decimal number in the file ZELKOR_IDENTITY_FILE, blanks and a line end around it allowed.
/// Win32: the value "global serial number" under HKEY_LOCAL_MACHINE.
/// @returns the number, 0 to 4294967294, or none if it is absent, unreadable or 4294967295
std::optional<std::uint32_t> ReadIdentityNumber();

} // namespace Zelkor::Discovery::Client::Platform
