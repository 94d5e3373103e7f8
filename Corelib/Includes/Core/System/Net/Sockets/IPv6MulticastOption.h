#pragma once

#include <Core/System/Net/IPAddress.h>
#include <Core/System/Object.h>

namespace Tesmo::System::Net::Sockets
{
/// An IPv6 multicast group, and the interface by which it is joined.
class IPv6MulticastOption : public Object
{
public:
    /// @param index  of the interface; 0 lets the system choose
    /// @throws ArgumentNullException        group is null
    /// @throws ArgumentOutOfRangeException  index does not fit 32 bits
    explicit IPv6MulticastOption(const IPAddress& group, std::int64_t index = 0);

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

    /// The system's number of the interface; 0 lets the system choose.
    std::int64_t InterfaceIndex() const
    {
        return interfaceIndex;
    }
    /// @throws ArgumentOutOfRangeException  value does not fit 32 bits
    void InterfaceIndex(std::int64_t value);

private:
    IPAddress groupAddress;
    std::int64_t interfaceIndex;
};
} // namespace Tesmo::System::Net::Sockets
