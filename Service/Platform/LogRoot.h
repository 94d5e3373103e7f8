#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// The folder of all of the maker's logs on this host: ZELKOR_LOG_ROOT on Linux, C:\ZelkorLogs on Win32. Any thread.
/// @returns the path as UTF-8
std::string LogRoot();

} // namespace Zelkor::Discovery::Client::Platform
