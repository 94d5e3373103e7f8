#pragma once

#include "ProbeOptions.h"

#include <Core/System/Sp.h>
#include <Discovery/Protocol/DiscoveryMessage.h>

namespace Zelkor::Discovery::Tools
{
/// The message that the options ask to send.
/// @throws ArgumentException  an unknown request, or arguments that do not fit it
Tesmo::Sp<DiscoveryMessage> MakeRequest(const ProbeOptions& options);
} // namespace Zelkor::Discovery::Tools
