#include "BusService.h"

#include <cstdint>

namespace Zelkor::Discovery::Client::Platform
{

bool StartBusService(SystemBus& bus, const char* name)
{
    constexpr const char* Bus = "org.freedesktop.DBus";
    BusMessage reply;
    return bus.Call(Bus, "/org/freedesktop/DBus", Bus, "StartServiceByName", reply, "su", name, std::uint32_t{0}) == 0;
}

} // namespace Zelkor::Discovery::Client::Platform
