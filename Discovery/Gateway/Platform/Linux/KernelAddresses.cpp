#include "KernelAddresses.h"

#include "HostCommand.h"

namespace Zelkor::Discovery::Client::Platform
{

std::string KernelAddresses::Name() const
{
    return "ip";
}

Ownership KernelAddresses::Owns(const std::string&, Deadline)
{
    return Ownership::Yes;
}

/// The gateway comes beside the default routes of other adapters, which stay and count first.
Failure KernelAddresses::Apply(const AddressPlan& plan, Deadline deadline)
{
    std::vector<std::string> add = {"ip",  "address",   "add", plan.address + "/" + std::to_string(plan.prefixLength),
                                    "dev", plan.adapter};
    if (plan.prefixLength < 31) // RFC 3021: two hosts need no broadcast
    {
        add.insert(add.end(), {"broadcast", "+"});
    }
    Failure failure = RunOnHost({"ip", "link", "set", "dev", plan.adapter, "up"}, deadline);
    failure = failure.empty() ? DropAddresses(plan.adapter, deadline) : failure;
    failure = failure.empty() ? RunOnHost(add, deadline) : failure;
    return failure.empty() && !plan.gateway.empty()
               ? RunOnHost({"ip", "route", "append", "default", "via", plan.gateway, "dev", plan.adapter}, deadline)
               : failure;
}

std::string KernelAddresses::Remark() const
{
    return "no manager owns the adapter: the setting lasts until the next restart of the host";
}

Failure DropAddresses(const std::string& adapter, Deadline deadline)
{
    return RunOnHost({"ip", "-4", "address", "flush", "dev", adapter}, deadline);
}

} // namespace Zelkor::Discovery::Client::Platform
