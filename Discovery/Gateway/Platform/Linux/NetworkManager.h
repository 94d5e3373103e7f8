#pragma once

#include "AddressManager.h"
#include "SystemBus.h"

#include <cstdint>
#include <optional>

namespace Zelkor::Discovery::Client::Platform
{

/// NetworkManager: changes the profile of the adapter, in memory until the adapter shows the addresses.
class NetworkManager : public AddressManager
{
public:
    /// The properties of a profile that a change sets, in the form in which nmcli tells and takes them.
    struct Settings
    {
        std::string routes; ///< separated by commas
        std::string method;
        std::string addresses;
        std::string gateway;
        std::string neverDefault;
        std::string probeTime; ///< in milliseconds; 0: no probes, -1: the default
    };

    std::string Name() const override;
    Answer Examine(const std::string& adapter, Deadline deadline) override;
    void DisableProbes(const std::string& adapter, Deadline deadline) override;
    Failure Apply(const AddressPlan& plan, Deadline deadline) override;
    Failure Keep(const AddressPlan& plan, Deadline deadline) override;
    Failure Withdraw(const AddressPlan& plan, Deadline deadline) override;
    bool NeedsCarrier() const override;

private:
    void ReadDevice(SystemBus& bus, const char* path);
    Failure FindProfile(const std::string& adapter, Deadline deadline);
    Failure AddProfile(const AddressPlan& plan, Deadline deadline);
    Failure ReadProfile(Deadline deadline);
    Failure ChangeProfile(const AddressPlan& plan, Deadline deadline);
    Failure RestoreProfile(Deadline deadline);
    Failure RestoreAdapter(const std::string& adapter, Deadline deadline);

    std::uint32_t type = 0;         ///< NMDeviceType
    std::uint32_t state = 0;        ///< NMDeviceState
    bool isActive = false;          ///< the adapter runs by the profile
    bool isBroughtUp = false;       ///< the adapter, for the change
    bool isStored = false;          ///< the profile is on disk, where administrators edit it
    bool isAdded = false;           ///< the profile is ours, if it is there at all
    std::string profile;            ///< its UUID, empty if there is none
    std::optional<Settings> former; ///< of the profile, once they have been read
};

} // namespace Zelkor::Discovery::Client::Platform
