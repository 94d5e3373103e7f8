#include "AdapterSettings.h"

#include "Adapters.h"
#include "Linux/Ifupdown.h"
#include "Linux/KernelAddresses.h"
#include "Linux/NetworkManager.h"
#include "Linux/Networkd.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <memory>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

using namespace std::chrono_literals;

// From the beginning of a change, except for ShowLimit and IdleLimit.
constexpr auto OwnerLimit = 5s; // to find the owner and to turn the probes off
constexpr auto ApplyLimit = 13s;
constexpr auto ShowLimit = 5s; // to wait until the adapter shows the addresses
constexpr auto IdleLimit = 1s; // the same without a carrier, which may be coming up
constexpr auto ChangeLimit = 24s;
constexpr auto ShowPause = 20ms;

using Manager = std::unique_ptr<AddressManager>;

template <class Kind>
Manager Make()
{
    return std::make_unique<Kind>();
}

/// In the order in which they are asked; the last one owns what is left (decision 156).
constexpr std::array<Manager (*)(), 4> Makers = {Make<NetworkManager>, Make<Networkd>, Make<Ifupdown>,
                                                 Make<KernelAddresses>};

/// @param owner  receives the manager that owns the adapter, or the one that doesn't answer
Failure FindOwner(const std::string& adapter, Deadline deadline, Manager& owner)
{
    if (if_nametoindex(adapter.c_str()) == 0)
    {
        return Failure("no such adapter");
    }
    Answer isOwner = Answer::No;
    for (std::size_t i = 0; i < Makers.size() && isOwner == Answer::No; ++i)
    {
        owner = Makers[i]();
        isOwner = owner->Examine(adapter, deadline);
    }
    return isOwner == Answer::Yes ? Failure() : Failure(owner->Name() + " does not tell whether it owns the adapter");
}

/// The adapter as it stands now, empty if it is gone.
Adapter Read(const std::string& name)
{
    std::vector<Adapter> adapters;
    ReadAdapters(adapters);
    const auto found = std::find_if(adapters.begin(), adapters.end(),
                                    [&name](const Adapter& adapter) { return adapter.friendlyName == name; });
    return found != adapters.end() ? *found : Adapter();
}

bool ShowsAddress(const AddressPlan& plan)
{
    const Adapter adapter = Read(plan.adapter);
    return adapter.ipAddressText == plan.address && adapter.ipMaskText == plan.mask;
}

bool Shows(const AddressPlan& plan)
{
    return ShowsAddress(plan) && Read(plan.adapter).gatewayText == plan.gateway;
}

bool HasCarrier(const std::string& adapter)
{
    ifreq request = {};
    adapter.copy(request.ifr_name, IFNAMSIZ - 1);
    const int handle = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const bool known = ioctl(handle, SIOCGIFFLAGS, &request) == 0;
    close(handle);
    return !known || (request.ifr_flags & IFF_RUNNING) != 0;
}

/// Whether the manager leaves the adapter alone until a cable is plugged in.
bool IsIdle(const AddressManager& manager, const AddressPlan& plan)
{
    return manager.NeedsCarrier() && !HasCarrier(plan.adapter);
}

/// @returns false at the limit
bool WaitUntilShown(const AddressManager& manager, const AddressPlan& plan)
{
    const Deadline begin = std::chrono::steady_clock::now();
    bool shown = Shows(plan);
    while (!shown && std::chrono::steady_clock::now() < begin + (IsIdle(manager, plan) ? IdleLimit : ShowLimit))
    {
        std::this_thread::sleep_for(ShowPause);
        shown = Shows(plan);
    }
    return shown;
}

/// @param remark  receives what an operator should know of a success
Failure TryChange(AddressManager& manager, const AddressPlan& plan, Deadline begin, std::string& remark)
{
    if (Failure failure = manager.Apply(plan, begin + ApplyLimit))
    {
        return failure;
    }
    const bool shown = WaitUntilShown(manager, plan);
    if (!shown && !IsIdle(manager, plan))
    {
        return Failure("the adapter does not show the new addresses");
    }
    remark = shown ? manager.Remark() : "the addresses take effect when the adapter is connected";
    return manager.Keep(plan, begin + ChangeLimit);
}

/// Likewise; after a failure the former setting is put back.
Failure Change(AddressManager& manager, const AddressPlan& plan, Deadline begin, std::string& remark)
{
    Failure failure = TryChange(manager, plan, begin, remark);
    if (!failure)
    {
        return {};
    }
    const Failure rest = manager.Withdraw(plan, begin + ChangeLimit);
    return rest ? Failure(failure.Reason() + "; the former setting is not restored: " + rest.Reason()) : failure;
}

SettingsOutcome Refuse(int error, const Failure& failure)
{
    return {error, failure.Reason(), false};
}

} // namespace

SettingsOutcome ChangeAdapterSettings(const AdapterSettings& settings)
try
{
    const Deadline begin = std::chrono::steady_clock::now();
    AddressPlan plan;
    if (const Failure failure = MakePlan(settings, plan))
    {
        return Refuse(EINVAL, failure);
    }
    Manager owner;
    if (const Failure failure = FindOwner(plan.adapter, begin + OwnerLimit, owner))
    {
        return Refuse(EIO, failure);
    }
    owner->DisableProbes(plan.adapter, begin + OwnerLimit);
    const bool showedAddress = ShowsAddress(plan);
    SettingsOutcome outcome;
    if (const Failure failure = Change(*owner, plan, begin, outcome.remark))
    {
        return Refuse(EIO, Failure(owner->Name() + ": " + failure.Reason()));
    }
    outcome.isUnseen = showedAddress || !ShowsAddress(plan); // decision 146
    return outcome;
}
catch (const std::exception& failure) // a folder that can't be read to its end, no memory
{
    return Refuse(EIO, Failure(failure.what()));
}

} // namespace Zelkor::Discovery::Client::Platform
