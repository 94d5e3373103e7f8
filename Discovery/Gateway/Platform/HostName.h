#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

constexpr int HostNameSize = 1024; ///< bytes with the closing zero; Linux needs 65 (gethostname(2), HOST_NAME_MAX)

/// Reads the host name as it stands now. Any thread.
/// @param name  receives zero-terminated text, defined only on success
/// @returns 0, or the platform's code: errno on Linux, GetLastError on Win32
int ReadHostName(char (&name)[HostNameSize]);

/// Gives the host a new name that outlasts a restart. Task thread. Linux: takes effect at once, and blocks for 30 s at
/// most; Win32: takes effect at the next start.
/// @param name  the new name; one that the platform refuses changes nothing
/// @returns 0, or a failure: the platform's code where it gives one
int WriteHostName(const std::string& name);

} // namespace Zelkor::Discovery::Client::Platform
