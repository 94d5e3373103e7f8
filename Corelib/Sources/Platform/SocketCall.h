#pragma once

#include "SocketState.h"
#include "Sockets.h"

namespace Tesmo::Platform
{
/// Ends a call; the last call of a closed socket releases its descriptor.
/// @tparam Socket  the platform's NativeSocket, with its `state` and `Release`
template <class Socket>
void LeaveSocket(Socket& socket)
{
    if (socket.state.Leave())
    {
        socket.Release();
    }
}

/// One call under way: its constructor enters the socket, its destructor leaves it.
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

    /// The error number of this call if the socket was closed or the direction shut down; 0 while it is open.
    int End(int direction) const
    {
        return socket.state.IsClosed() ? SocketInterrupted : socket.state.IsShutDown(direction) ? SocketShutDown : 0;
    }

private:
    Socket& socket;
    const bool entered;
};
} // namespace Tesmo::Platform
