#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// Makes content the whole of a small configuration file, so that it outlasts a crash: a new file takes the old one's
/// place in one step. Where that place is fixed (a bind mount, a folder that can't be written) the file is written in
/// place. On failure the old content stands.
/// @returns 0, or errno
int ReplaceFile(const std::string& path, const std::string& content);

} // namespace Zelkor::Discovery::Client::Platform
