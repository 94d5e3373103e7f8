#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// Gives a small configuration file a new content that outlasts a crash: a new file takes the old one's place in one
/// step. Where that can't be (a bind mount, a folder without the right to write) the old file is overwritten. After a
/// failure the old content is there.
/// @returns 0, or errno
int ReplaceFile(const std::string& path, const std::string& content);

} // namespace Zelkor::Discovery::Client::Platform
