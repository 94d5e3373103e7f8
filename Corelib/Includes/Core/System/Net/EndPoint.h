#pragma once

#include <Core/System/Net/SocketAddress.h>
#include <Core/System/Net/Sockets/AddressFamily.h>
#include <Core/System/Object.h>
#include <Core/System/Up.h>

namespace Tesmo::System::Net
{
/// An end of a conversation, of some address family.
class EndPoint : public Object
{
public:
    /// An end point without an address; classes of a family add theirs.
    explicit EndPoint(const Sockets::AddressFamily& family) : addressFamily(family) {}

    /// The family that stands first in the raw form.
    Sockets::AddressFamily AddressFamily() const
    {
        return addressFamily;
    }

    /// A new end point of this class from the raw form.
    /// @throws NotSupportedException  this class has none
    virtual Up<EndPoint> Create(const SocketAddress& socketAddress) const;

    /// The raw form; here the family alone, two bytes.
    virtual SocketAddress Serialize() const;

protected:
    void AddressFamily(const Sockets::AddressFamily& family)
    {
        addressFamily = family;
    }

private:
    Sockets::AddressFamily addressFamily;
};
} // namespace Tesmo::System::Net
