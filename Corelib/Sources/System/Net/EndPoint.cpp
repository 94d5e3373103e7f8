#include <Core/System/Net/EndPoint.h>

#include <Core/System/NotSupportedException.h>

namespace Tesmo::System::Net
{
Up<EndPoint> EndPoint::Create(const SocketAddress&) const
{
    throw NotSupportedException(ThrowSite);
}

SocketAddress EndPoint::Serialize() const
{
    return SocketAddress(addressFamily, 2);
}
} // namespace Tesmo::System::Net
