#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// The folder under which the programs of this host lie: ZELKOR_PROGRAM_ROOT on Linux, the parent of the 32-bit
/// Common Files folder on Win32. Any thread.
/// @returns the path as UTF-8, empty if the host names no such folder
std::string ProgramRoot();

} // namespace Zelkor::Discovery::Client::Platform
