#pragma once

#include <string_view>

namespace Zelkor::Discovery::Client::Platform
{

/// Whether a Linux host can have a name: labels of ASCII letters, digits and inner hyphens, with single dots between
/// them (RFC 1123, section 2.1), 64 characters at most (gethostname(2), HOST_NAME_MAX). systemd-hostnamed takes the
/// same names; it takes the empty one too, and deletes the stored name then.
bool IsHostName(std::string_view name);

} // namespace Zelkor::Discovery::Client::Platform
