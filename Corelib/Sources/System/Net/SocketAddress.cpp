#include <Core/System/Net/SocketAddress.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>

#include <algorithm>
#include <vector>

namespace Tesmo::System::Net
{
namespace
{
constexpr int FamilySize = 2;

int CheckedSize(int size)
{
    if (size < FamilySize)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return size;
}

int CheckedSize(const Sockets::AddressFamily& family, int size)
{
    NotNull(family);
    return CheckedSize(size);
}

std::vector<Byte> CheckedCopy(const unsigned char* bytes, int size)
{
    NotNull(bytes);
    return std::vector<Byte>(bytes, bytes + CheckedSize(size));
}
} // namespace

SocketAddress::SocketAddress(const unsigned char* bytes, int size) : data(CheckedCopy(bytes, size)) {}

SocketAddress::SocketAddress(const Sockets::AddressFamily& family, int size) : data(CheckedSize(family, size))
{
    const int number = family.ToInt32();
    data[0] = static_cast<std::uint8_t>(number);
    data[1] = static_cast<std::uint8_t>(number >> 8);
}

bool SocketAddress::Equals(const Object& other) const
{
    if (IsNull(other))
    {
        return false;
    }
    const auto* const that = dynamic_cast<const SocketAddress*>(&other);
    const auto sameByte = [](const Byte& left, const Byte& right) { return std::uint8_t(left) == std::uint8_t(right); };
    return that != nullptr && std::equal(data.begin(), data.end(), that->data.begin(), that->data.end(), sameByte);
}

Sockets::AddressFamily SocketAddress::Family() const
{
    return Sockets::AddressFamily(data[0] | data[1] << 8);
}
} // namespace Tesmo::System::Net
