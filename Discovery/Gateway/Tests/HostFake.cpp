#include "HostFake.h"

#include <Discovery/Gateway/Platform/AddressChange.h>
#include <Discovery/Gateway/Platform/DeviceType.h>
#include <Discovery/Gateway/Platform/HostName.h>
#include <Discovery/Gateway/Platform/IdentityNumber.h>
#include <Discovery/Gateway/Platform/ProgramRoot.h>

HostFake host;

namespace Zelkor::Discovery::Platform
{
int ReadAdapters(std::vector<Adapter>& adapters)
{
    adapters = host.adapters;
    return adapters.empty() ? 1 : 0;
}

bool WaitForAddressChange()
{
    return host.addressChange;
}

int CancelAddressChangeWait()
{
    return host.cancelResult;
}

const char* DeviceType()
{
    return "Fake PC";
}

int ReadHostName(char (&name)[HostNameSize])
{
    if (host.hostName)
    {
        host.hostName->copy(name, HostNameSize - 1);
        name[host.hostName->size()] = '\0';
    }
    return host.hostName ? 0 : 1;
}

std::optional<std::uint32_t> ReadIdentityNumber()
{
    return host.identityNumber;
}

std::string ProgramRoot()
{
    return host.programRoot;
}
} // namespace Zelkor::Discovery::Platform
