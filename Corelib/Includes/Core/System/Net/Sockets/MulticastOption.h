#pragma once

#include <Core/System/Net/IPAddress.h>
#include <Core/System/Object.h>

namespace Tesmo::System::Net::Sockets
{
/// An IPv4 multicast group, and the interface by which it is joined.
class MulticastOption : public Object
{
public:
    /// The system chooses the interface.
    /// @throws ArgumentNullException  group is null
    explicit MulticastOption(const IPAddress& group) : MulticastOption(group, IPAddress::Any) {}

    /// @param localAddress  an address of the interface
    /// @throws ArgumentNullException  an address is null
    MulticastOption(const IPAddress& group, const IPAddress& localAddress)
        : groupAddress(group),
          interfaceAddress(localAddress)
    {
    }

    /// Not checked to be a multicast address: the socket refuses others when it joins.
    /// @throws ArgumentNullException  value is null
    const IPAddress& Group() const
    {
        return groupAddress;
    }
    void Group(const IPAddress& value)
    {
        groupAddress = value;
    }

    /// An address of the interface; 0.0.0.0 lets the system choose.
    /// @throws ArgumentNullException  value is null
    const IPAddress& LocalAddress() const
    {
        return interfaceAddress;
    }
    void LocalAddress(const IPAddress& value)
    {
        interfaceAddress = value;
    }

private:
    IPAddress groupAddress;
    IPAddress interfaceAddress;
};
} // namespace Tesmo::System::Net::Sockets
