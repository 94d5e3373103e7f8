#include "AdapterSettings.h"

#include "Adapters.h"
#include "Linux/AddressNotice.h"
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

// The time of a change: who owns the adapter, the change itself, reading it back, and the way back after a failure.
constexpr auto OwnerLimit = 5s;
constexpr auto ApplyLimit = 13s; // with the time for the owner
constexpr auto ReadBackLimit = 5s;
constexpr auto IdleLimit = 1s; // for an adapter without carrier, which may be getting one
constexpr auto ChangeLimit = 24s;
constexpr auto ReadBackPause = 20ms;

using Manager = std::unique_ptr<AddressManager>;

template <class Kind>
Manager Make()
{
    return std::make_unique<Kind>();
}

/// In the order in which they are asked; the last one takes what is left.
constexpr std::array<Manager (*)(), 4> Makers = {Make<NetworkManager>, Make<Networkd>, Make<Ifupdown>,
                                                 Make<KernelAddresses>};

/// @param failure  receives the reason where the result is null
Manager FindOwner(const std::string& adapter, Deadline deadline, Failure& failure)
{
    if (if_nametoindex(adapter.c_str()) == 0)
    {
        failure = "no such adapter";
        return nullptr;
    }
    for (const auto make : Makers)
    {
        Manager manager = make();
        switch (manager->Owns(adapter, deadline))
        {
        case Ownership::Yes:
            return manager;
        case Ownership::No:
            break;
        case Ownership::Unknown:
            failure = manager->Name() + " does not tell whether the adapter is in its hands";
            return nullptr;
        }
    }
    return nullptr;
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

/// True for an adapter that its manager leaves alone until a cable is plugged in.
bool IsIdle(const AddressManager& manager, const AddressPlan& plan)
{
    return manager.NeedsCarrier() && !HasCarrier(plan.adapter);
}

bool WaitUntilShown(const AddressManager& manager, const AddressPlan& plan)
{
    const Deadline begin = std::chrono::steady_clock::now();
    bool shown = Shows(plan);
    while (!shown && std::chrono::steady_clock::now() < begin + (IsIdle(manager, plan) ? IdleLimit : ReadBackLimit))
    {
        std::this_thread::sleep_for(ReadBackPause);
        shown = Shows(plan);
    }
    return shown;
}

/// @param remark  receives what an operator should know of the success
Failure Change(AddressManager& manager, const AddressPlan& plan, Deadline begin, std::string& remark)
{
    Failure failure = manager.Apply(plan, begin + ApplyLimit);
    if (failure.empty())
    {
        const bool shown = WaitUntilShown(manager, plan);
        const bool idle = !shown && IsIdle(manager, plan);
        failure = shown || idle ? "" : "the adapter does not show the new addresses";
        remark = idle ? "the addresses take effect when the adapter is connected" : manager.Remark();
    }
    if (failure.empty())
    {
        failure = manager.Keep(plan, begin + ChangeLimit);
    }
    if (failure.empty())
    {
        return {};
    }
    const Failure remains = manager.Withdraw(plan, begin + ChangeLimit);
    return remains.empty() ? failure : failure + "; the former setting is not restored: " + remains;
}

int Tell(int code, const std::string& text, std::string& remark)
{
    remark = OneLine(text);
    return code;
}

} // namespace

int DisableAddressProbes(const AdapterSettings& settings)
try
{
    const Deadline deadline = std::chrono::steady_clock::now() + OwnerLimit;
    AddressPlan plan;
    Failure failure = MakePlan(settings, plan);
    if (!failure.empty())
    {
        return EINVAL;
    }
    const Manager manager = FindOwner(plan.adapter, deadline, failure);
    return manager != nullptr && manager->DisableProbes(plan.adapter, deadline).empty() ? 0 : EIO;
}
catch (const std::exception&)
{
    return EIO;
}

int ApplyAdapterSettings(const AdapterSettings& settings, std::string& remark)
try
{
    const Deadline begin = std::chrono::steady_clock::now();
    AddressPlan plan;
    Failure failure = MakePlan(settings, plan);
    if (!failure.empty())
    {
        return Tell(EINVAL, failure, remark);
    }
    const Manager manager = FindOwner(plan.adapter, begin + OwnerLimit, failure);
    if (manager == nullptr)
    {
        return Tell(EIO, failure, remark);
    }
    const bool isSilent = ShowsAddress(plan);
    std::string hint;
    failure = Change(*manager, plan, begin, hint);
    if (!failure.empty())
    {
        return Tell(EIO, manager->Name() + ": " + failure, remark);
    }
    if (isSilent || !ShowsAddress(plan))
    {
        NoteAddressChange(); // whoever asked for it waits for the new signature
    }
    return Tell(0, hint, remark);
}
catch (const std::exception& failure) // a folder that can't be read to its end, no memory
{
    return Tell(EIO, failure.what(), remark);
}

} // namespace Zelkor::Discovery::Client::Platform
