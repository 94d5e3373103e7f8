#pragma once

#include "Command.h"

namespace Zelkor::Discovery::Client::Platform
{

/// Runs a program that needs rights over the network itself. Where this process and its children can't have them
/// (CAP_NET_ADMIN is not in its bounding set: the service under its unit), the service manager runs the program,
/// outside of the sandbox, and what it starts lives on when this service stops; else it is a child, as by RunCommand,
/// in the network namespace of this process. One that outlasts the deadline is killed with all that it started.
CommandResult RunHostCommand(const std::vector<std::string>& arguments, Deadline deadline);

} // namespace Zelkor::Discovery::Client::Platform
