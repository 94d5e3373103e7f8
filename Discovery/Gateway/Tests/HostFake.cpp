#include "HostFake.h"

#include <Discovery/Gateway/Platform/AddressChange.h>
#include <Discovery/Gateway/Platform/DeviceType.h>
#include <Discovery/Gateway/Platform/HostName.h>
#include <Discovery/Gateway/Platform/IdentityNumber.h>
#include <Discovery/Gateway/Platform/ProgramRoot.h>
#include <Discovery/Gateway/Platform/Reboot.h>

HostFake host;

namespace Zelkor::Discovery::Client::Platform
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

void EndAddressChangeWatch()
{
    ++host.endedWatches;
}

SettingsOutcome ChangeAdapterSettings(const AdapterSettings& settings)
{
    host.changes.push_back("set " + settings.adapterName + " " + settings.ipAddressText + " " + settings.ipMaskText +
                           " " + settings.gatewayText);
    return host.outcomes[settings.adapterName];
}

void NoteAddressChange()
{
    host.changes.push_back("notice");
}

int WriteHostName(const std::string& name)
{
    host.changes.push_back("name " + name);
    return host.nameResult;
}

int RequestReboot(int seconds)
{
    host.changes.push_back("reboot " + std::to_string(seconds));
    return host.rebootResult;
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
} // namespace Zelkor::Discovery::Client::Platform
