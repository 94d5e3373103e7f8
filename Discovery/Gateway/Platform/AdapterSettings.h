#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// The static IPv4 configuration that an adapter shall have.
struct AdapterSettings
{
    std::string adapterName;   ///< the adapter's display name, as ReadAdapters tells it
    std::string ipAddressText; ///< dotted text, as are the next two
    std::string ipMaskText;
    std::string gatewayText;
};

/// How a change of an adapter ended.
struct SettingsOutcome
{
    int error = 0; ///< 0, or a failure: the platform's code where it gives one

    /// What an operator should know, in one line of ASCII: the reason of a failure; or that the change is lost at the
    /// next restart, waits for a cable, or left VLANs down. Usually empty; always on Win32.
    std::string remark;

    /// The change has succeeded, but WaitForAddressChange does not see it: a new gateway, the same addresses once more,
    /// or addresses that wait for a cable. Never on Win32, where every change is seen.
    bool isUnseen = false;
};

/// Gives one adapter new IPv4 addresses and a new default gateway, with the probes for duplicate addresses turned off
/// for the running system; probes that stay on don't count as a failure. Task thread.
/// Linux: changes the adapter through the manager that owns it, so that the change outlasts a restart, and succeeds
/// when the adapter shows the addresses or waits for a cable to do so; blocks for 25 s at most. The gateway 0.0.0.0
/// means none; any other that isn't a neighbour in the new subnet fails before anything is changed.
SettingsOutcome ChangeAdapterSettings(const AdapterSettings& settings);

} // namespace Zelkor::Discovery::Client::Platform
