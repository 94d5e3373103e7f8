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

/// The default route is appended: those of other adapters stay and count first.
Failure KernelAddresses::Apply(const AddressPlan& plan, Deadline deadline)
{
    const std::string address = plan.address + "/" + std::to_string(plan.prefixLength);
    std::vector<std::vector<std::string>> commands = {{"link", "set", "dev", plan.adapter, "up"},
                                                      {"-4", "address", "flush", "dev", plan.adapter},
                                                      {"address", "add", address, "dev", plan.adapter}};
    if (plan.prefixLength < 31) // RFC 3021: two hosts need no broadcast
    {
        commands.back().insert(commands.back().end(), {"broadcast", "+"});
    }
    if (!plan.gateway.empty())
    {
        commands.push_back({"route", "append", "default", "via", plan.gateway, "dev", plan.adapter});
    }
    for (const std::vector<std::string>& command : commands)
    {
        if (Failure failure = RunIp(command, deadline))
        {
            return failure;
        }
    }
    return {};
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
