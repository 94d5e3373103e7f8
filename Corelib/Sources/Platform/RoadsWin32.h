#pragma once

namespace Tesmo::Platform
{
/// The interface for a broadcast without a route: the first one, in ascending index, that is up and has an IPv4 address;
/// only where there is none, one that is down or loopback.
/// @returns its index, or 0 if no interface has an address
unsigned long FindBroadcastInterface();
} // namespace Tesmo::Platform
