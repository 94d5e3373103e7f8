#pragma once

namespace Zelkor::Discovery::Client::Platform
{

/// Has the host restarted after the given time, and tells its users. Task thread.
/// Linux: blocks for 30 s at most; where systemd's login manager is missing, whole minutes are waited.
/// @returns 0, or a failure: the platform's code where it gives one
int RequestReboot(int seconds);

} // namespace Zelkor::Discovery::Client::Platform
