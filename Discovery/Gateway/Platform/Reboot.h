#pragma once

namespace Zelkor::Discovery::Client::Platform
{

/// Asks for a restart of the host after a time, which its users are told of. Task thread.
/// Linux: blocks for 30 s at most; without systemd's login manager the time is rounded up to whole minutes.
/// @returns 0, or a failure: the platform's code where it gives one
int RequestReboot(int seconds);

} // namespace Zelkor::Discovery::Client::Platform
