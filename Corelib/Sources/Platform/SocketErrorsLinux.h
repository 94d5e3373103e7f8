#pragma once

namespace Tesmo::Platform
{
/// The Windows Sockets error number that stands for an errno of a socket call; 10022 for one without a counterpart.
int SocketErrorOf(int error);
} // namespace Tesmo::Platform
