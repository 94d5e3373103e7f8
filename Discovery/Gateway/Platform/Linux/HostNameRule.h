#pragma once

#include <string_view>

namespace Zelkor::Discovery::Client::Platform
{

/// Whether a Linux host can bear name: labels of ASCII letters, digits and inner hyphens, parted by single dots
/// (RFC 1123, section 2.1), with 64 characters at most (gethostname(2), HOST_NAME_MAX). systemd-hostnamed takes the
/// same names, and the empty one, by which it deletes the stored name.
bool IsHostName(std::string_view name);

} // namespace Zelkor::Discovery::Client::Platform
