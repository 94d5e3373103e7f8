#pragma once

#include "SystemBus.h"

namespace Zelkor::Discovery::Client::Platform
{

/// Whether the service with this bus name runs, or could be started now: services of systemd start when they are needed.
/// False as well where there is no bus, and where the service doesn't come up by the deadline of the bus.
bool StartBusService(SystemBus& bus, const char* name);

} // namespace Zelkor::Discovery::Client::Platform
