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

/// Turns the probes for duplicate addresses off, on one adapter and for the running system only. Blocks for 5 s at most
/// on Linux. Task thread.
/// @returns 0, or a failure: the platform's code where it gives one
int DisableAddressProbes(const AdapterSettings& settings);

/// Replaces the IPv4 addresses and the default gateway of one adapter. Task thread.
/// Linux: through the manager that owns the adapter, so that it outlasts a reboot; blocks for 25 s at most, and the
/// addresses are read back before success is told. The gateway 0.0.0.0 means none; any other that isn't a neighbour
/// in the new subnet fails before anything is changed.
/// An adapter without a cable may get its addresses only with one: then the manager has taken them.
/// @param remark  receives what an operator should know, in one line of ASCII: on failure the reason, on success that the
///                setting doesn't outlast a reboot or waits for a cable, or which VLANs did not come up again; else empty
/// @returns 0, or a failure: the platform's code where it gives one
int ApplyAdapterSettings(const AdapterSettings& settings, std::string& remark);

} // namespace Zelkor::Discovery::Client::Platform
