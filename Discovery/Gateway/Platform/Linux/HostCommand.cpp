#include "HostCommand.h"

#include <algorithm>
#include <iterator>
#include <linux/capability.h>
#include <sys/prctl.h>

namespace Zelkor::Discovery::Platform
{

namespace
{

/// @returns what asks the service manager to run a program and waits for it; its exit code and output come through
std::vector<std::string> ManagerCommand(Deadline deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    const std::string limit = std::to_string(std::max<long long>(left.count(), 1)) + "ms";
    return {"systemd-run",
            "--quiet",
            "--wait",
            "--pipe",
            "--collect",
            "--no-ask-password",
            "--service-type=exec",
            "--property=KillMode=process",
            "--property=RuntimeMaxSec=" + limit,
            "--"};
}

/// The service manager puts values of variables into the words of a command; a doubled sign stands for itself.
std::string WithoutVariables(const std::string& word)
{
    std::string escaped;
    for (const char c : word)
    {
        escaped += c == '$' ? "$$" : std::string(1, c);
    }
    return escaped;
}

} // namespace

CommandResult RunHostCommand(const std::vector<std::string>& arguments, Deadline deadline)
{
    if (prctl(PR_CAPBSET_READ, CAP_NET_ADMIN) == 1)
    {
        return RunCommand(arguments, deadline);
    }
    std::vector<std::string> command = ManagerCommand(deadline);
    std::transform(arguments.begin(), arguments.end(), std::back_inserter(command), WithoutVariables);
    return RunCommand(command, deadline);
}

} // namespace Zelkor::Discovery::Platform
