#pragma once

#include <Core/System/Array.h>
#include <Core/System/Net/IPAddress.h>
#include <Core/System/Net/IPHostEntry.h>
#include <Core/System/String.h>

namespace Tesmo::System::Net
{
/// Looks hosts up in the platform's name service, which may ask the network and take as long as that does. From any
/// thread; one look-up runs at a time.
class Dns
{
public:
    Dns() = delete;

    /// The addresses of a host. A text that reads as an address is looked up by address.
    /// @throws ArgumentNullException      hostNameOrAddress is null
    /// @throws InvalidOperationException  there is no answer
    static Array<IPAddress> GetHostAddresses(const String& hostNameOrAddress);

    /// Name, aliases and addresses of a host; otherwise the same.
    static IPHostEntry GetHostEntry(const String& hostNameOrAddress);

    /// @throws ArgumentNullException      address is null
    /// @throws InvalidOperationException  there is no answer
    static IPHostEntry GetHostEntry(const IPAddress& address);

    /// The name of this host.
    /// @throws Sockets::SocketException  the platform does not tell
    static String GetHostName();
};
} // namespace Tesmo::System::Net
