#pragma once

#include <Core/System/Object.h>
#include <Core/System/Up.h>

namespace Zelkor::Discovery
{
/// Takes datagrams for everybody to the LAN by other means than a socket. The service has none.
class IBroadcastProvider : public Tesmo::System::Object
{
public:
    /// Called on the task processor's thread, or on the one that stops the client.
    /// @param bytes  size bytes, 1 or more
    /// @throws SocketException, ObjectClosedException  taken as the failure of a socket
    virtual void Send(const Tesmo::Up<unsigned char[]>& bytes, int size) = 0;
};
} // namespace Zelkor::Discovery
