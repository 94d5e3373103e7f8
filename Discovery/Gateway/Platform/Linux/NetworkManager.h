#pragma once

#include "AddressManager.h"

namespace Zelkor::Discovery::Client::Platform
{

/// NetworkManager: changes the profile of the adapter, in memory until the addresses are there.
class NetworkManager : public AddressManager
{
public:
    std::string Name() const override;
    Ownership Owns(const std::string& adapter, Deadline deadline) override;
    Failure DisableProbes(const std::string& adapter, Deadline deadline) override;
    Failure Apply(const AddressPlan& plan, Deadline deadline) override;
    Failure Keep(const AddressPlan& plan, Deadline deadline) override;
    Failure Withdraw(const AddressPlan& plan, Deadline deadline) override;
    bool NeedsCarrier() const override;

private:
    void ReadDevice(SystemBus& bus, const char* path);
    Failure FindProfile(const std::string& adapter, Deadline deadline);
    Failure AddProfile(const AddressPlan& plan, Deadline deadline);
    Failure ReadProfile(const AddressPlan& plan, Deadline deadline);
    Failure ChangeProfile(const AddressPlan& plan, Deadline deadline);
    Failure RestoreProfile(Deadline deadline);

    std::uint32_t type = 0;          ///< NMDeviceType
    std::uint32_t state = 0;         ///< NMDeviceState
    bool isActive = false;           ///< the adapter runs by the profile
    bool isBroughtUp = false;        ///< the adapter, for the change
    bool isStored = false;           ///< the profile is on disk, where administrators edit it
    bool isAdded = false;            ///< the profile is ours, if it is there at all
    std::string profile;             ///< its UUID, empty if there is none
    std::vector<std::string> former; ///< the properties that are changed, each with its value before
    std::string probeTime;           ///< what the profile says of probes
};

} // namespace Zelkor::Discovery::Client::Platform
