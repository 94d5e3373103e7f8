#include "KernelAddresses.h"

#include "HostCommand.h"

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

Failure RunIp(std::vector<std::string> arguments, Deadline deadline)
{
    arguments.insert(arguments.begin(), "ip");
    return ProgramFailure("ip", RunHostCommand(arguments, deadline));
}

} // namespace

std::string KernelAddresses::Name() const
{
    return "ip";
}

Answer KernelAddresses::Examine(const std::string&, Deadline)
{
    return Answer::Yes;
}

/// The gateway comes beside the default routes of other adapters, which stay and count first.
Failure KernelAddresses::Apply(const AddressPlan& plan, Deadline deadline)
{
    std::vector<std::string> add = {"address", "add", plan.address + "/" + std::to_string(plan.prefixLength), "dev",
                                    plan.adapter};
    if (plan.prefixLength < 31) // RFC 3021: two hosts need no broadcast
    {
        add.insert(add.end(), {"broadcast", "+"});
    }
    if (Failure failure = RunIp({"link", "set", "dev", plan.adapter, "up"}, deadline))
    {
        return failure;
    }
    if (Failure failure = DropAddresses(plan.adapter, deadline))
    {
        return failure;
    }
    if (Failure failure = RunIp(add, deadline); failure || plan.gateway.empty())
    {
        return failure;
    }
    return RunIp({"route", "append", "default", "via", plan.gateway, "dev", plan.adapter}, deadline);
}

std::string KernelAddresses::Remark() const
{
    return "no manager owns the adapter: the setting lasts until the next restart of the host";
}

Failure DropAddresses(const std::string& adapter, Deadline deadline)
{
    return RunIp({"-4", "address", "flush", "dev", adapter}, deadline);
}

} // namespace Zelkor::Discovery::Client::Platform
