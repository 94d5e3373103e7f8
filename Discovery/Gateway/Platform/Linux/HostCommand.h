#pragma once

#include "Command.h"

namespace Zelkor::Discovery::Client::Platform
{

/// Runs a program that needs rights over the network, as RunCommand does. Where this process can't give it those rights
/// (the packaged service has no CAP_NET_ADMIN in its bounding set), the service manager runs it outside of the sandbox,
/// and what it leaves running lives on when this service stops. At the deadline it is killed with all that it started.
CommandResult RunHostCommand(const std::vector<std::string>& arguments, Deadline deadline);

} // namespace Zelkor::Discovery::Client::Platform
