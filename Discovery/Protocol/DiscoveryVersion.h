#pragma once

#include <Core/System/Version.h>

namespace Zelkor::Discovery
{
/// The version of the protocol, 1.0.23: the default version of every message.
const Tesmo::System::Version& DiscoveryVersion();
} // namespace Zelkor::Discovery
