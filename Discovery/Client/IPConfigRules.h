#pragma once

#include <Discovery/Protocol/NICConfig.h>

namespace Zelkor::Discovery::Client
{
/// Whether a configuration may be given to an adapter: its address is of IPv4, begins with neither 0 nor 127 and is not
/// 255.255.255.255; its mask is of IPv4 and has no gap in its bits 0 to 30 (the highest bit is not looked at). Nothing
/// else is checked: neither the gateway nor whether it lies in the address's subnet.
bool IsAcceptable(const NICConfig& config);
} // namespace Zelkor::Discovery::Client
