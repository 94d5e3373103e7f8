#include "HostCommand.h"

#include <algorithm>
#include <iterator>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

using namespace std::chrono_literals;

constexpr auto EndLimit = 1s; // to kill what took too long

/// @returns a name that no other unit has had since the host was started
std::string MakeUnitName()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return "zelkor-discovery-" + std::to_string(getpid()) + "-" + std::to_string(now.count()) + ".service";
}

/// @returns a command that has the service manager run a program and ends with the program's exit code and output.
///          What the program leaves running (a DHCP client) runs on.
std::vector<std::string> ManagerCommand(const std::string& unit, Deadline deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    const std::string limit = std::to_string(std::max<long long>(left.count(), 1)) + "ms";
    return {"systemd-run",
            "--quiet",
            "--wait",
            "--pipe",
            "--collect",
            "--no-ask-password",
            "--unit=" + unit,
            "--service-type=exec",
            "--property=KillMode=process",
            "--property=RuntimeMaxSec=" + limit,
            "--"};
}

/// The service manager replaces variables in the words of a command, and takes a doubled sign for the sign itself.
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

// decision 171
CommandResult RunHostCommand(const std::vector<std::string>& arguments, Deadline deadline)
{
    if (prctl(PR_CAPBSET_READ, CAP_NET_ADMIN) == 1)
    {
        return RunCommand(arguments, deadline);
    }
    const std::string unit = MakeUnitName();
    std::vector<std::string> command = ManagerCommand(unit, deadline);
    std::transform(arguments.begin(), arguments.end(), std::back_inserter(command), WithoutVariables);
    CommandResult result = RunCommand(command, deadline - EndLimit);
    if (result.code < 0)
    {
        RunCommand({"systemctl", "kill", "--signal=KILL", unit}, deadline); // all processes of the unit
    }
    return result;
}

} // namespace Zelkor::Discovery::Client::Platform
