#include "AddressManager.h"

#include "HostCommand.h"

#include <algorithm>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

Failure Explain(const std::string& program, const CommandResult& result)
{
    if (result.code == 0)
    {
        return {};
    }
    const std::string how = result.code < 0 ? " could not be started or took too long"
                                            : " ended with exit code " + std::to_string(result.code);
    const std::string output = OneLine(result.output);
    return program + how + (output.empty() ? "" : ": " + output);
}

} // namespace

Failure AddressManager::DisableProbes(const std::string&, Deadline)
{
    return {};
}

Failure AddressManager::Keep(const AddressPlan&, Deadline)
{
    return {};
}

Failure AddressManager::Withdraw(const AddressPlan&, Deadline)
{
    return {};
}

bool AddressManager::NeedsCarrier() const
{
    return false;
}

std::string AddressManager::Remark() const
{
    return {};
}

Failure Run(const std::vector<std::string>& arguments, Deadline deadline)
{
    return Explain(arguments.front(), RunCommand(arguments, deadline));
}

Failure RunOnHost(const std::vector<std::string>& arguments, Deadline deadline)
{
    return Explain(arguments.front(), RunHostCommand(arguments, deadline));
}

Ownership Runs(SystemBus& bus, const char* service)
{
    if (bus.IsAbsent())
    {
        return Ownership::No;
    }
    if (bus.HasOwner(service))
    {
        return Ownership::Yes;
    }
    return bus.LastCode() == 0 ? Ownership::No : Ownership::Unknown;
}

std::string OneLine(const std::string& text)
{
    constexpr std::size_t MaximumLength = 200;
    const std::size_t begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    std::string line = text.substr(begin, std::min(text.find_first_of("\r\n", begin) - begin, MaximumLength));
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return line;
}

} // namespace Zelkor::Discovery::Client::Platform
