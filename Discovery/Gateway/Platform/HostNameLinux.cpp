#include "HostName.h"

#include "Linux/HostNameRule.h"
#include "Linux/ReplaceFile.h"
#include "Linux/SystemBus.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* Service = "org.freedesktop.hostname1"; // also its interface
constexpr std::chrono::seconds BusLimit{20};                 // leaves time to do without the service

int WriteThroughService(SystemBus& bus, const std::string& name)
{
    constexpr int Interactive = 0;
    BusMessage reply;
    return bus.Call(Service, "/org/freedesktop/hostname1", Service, "SetStaticHostname", reply, "sb", name.c_str(),
                    Interactive);
}

/// The running system first: its name can be put back when the file can't be written (decision 153).
int WriteWithoutService(const std::string& name)
{
    char oldName[HostNameSize];
    if (const int error = ReadHostName(oldName); error != 0)
    {
        return error;
    }
    if (sethostname(name.data(), name.size()) != 0)
    {
        return errno;
    }
    const int error = ReplaceFile("/etc/hostname", name + "\n");
    if (error != 0 && sethostname(oldName, std::strlen(oldName)) != 0)
    {
        return errno;
    }
    return error;
}

} // namespace

int ReadHostName(char (&name)[HostNameSize])
{
    return gethostname(name, HostNameSize) == 0 ? 0 : errno;
}

int WriteHostName(const std::string& name)
{
    if (!IsHostName(name))
    {
        return EINVAL;
    }
    SystemBus bus(std::chrono::steady_clock::now() + BusLimit);
    return bus.Start(Service) ? WriteThroughService(bus, name) : WriteWithoutService(name);
}

} // namespace Zelkor::Discovery::Client::Platform
