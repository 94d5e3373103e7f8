#pragma once

namespace Zelkor::Discovery::Platform
{

constexpr int HostNameSize = 1024; ///< bytes with the closing zero; Linux needs 65 (gethostname(2), HOST_NAME_MAX)

/// Reads the host name as it stands now. Any thread.
/// @param name  receives zero-terminated text, defined only on success
/// @returns 0, or the platform's code: errno on Linux, GetLastError on Win32
int ReadHostName(char (&name)[HostNameSize]);

} // namespace Zelkor::Discovery::Platform
