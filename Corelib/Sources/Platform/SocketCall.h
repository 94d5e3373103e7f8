#pragma once

#include "SocketState.h"
#include "Sockets.h"

namespace Tesmo::Platform
{
/// Ends a call; the last one out of a closed socket releases its descriptor.
/// @tparam Socket  the platform's NativeSocket, with its `state` and `Release`
template <class Socket>
void LeaveSocket(Socket& socket)
{
    if (socket.state.Leave())
    {
        socket.Release();
    }
}

/// Stands for one call under way.
template <class Socket>
class SocketCall
{
public:
    explicit SocketCall(Socket& used) : socket(used), entered(used.state.Enter()) {}

    ~SocketCall()
    {
        if (entered)
        {
            LeaveSocket(socket);
        }
    }

    SocketCall(const SocketCall&) = delete;
    SocketCall& operator=(const SocketCall&) = delete;

    bool Refused() const
    {
        return !entered;
    }

    /// The number with which the end of the socket ends this call, 0 while the direction is open.
    int End(int direction) const
    {
        return socket.state.IsClosed() ? SocketInterrupted : socket.state.IsShutDown(direction) ? SocketShutDown : 0;
    }

private:
    Socket& socket;
    const bool entered;
};
} // namespace Tesmo::Platform
