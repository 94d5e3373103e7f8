#pragma once

#include <Core/System/Array.h>
#include <Core/System/Byte.h>
#include <Core/System/Net/Sockets/AddressFamily.h>
#include <Core/System/Object.h>

namespace Tesmo::System::Net
{
/// An address in its raw form, the sockaddr layout of Windows: two bytes of family, low byte first, then what the
/// family puts there.
class SocketAddress : public Object
{
public:
    /// Copies size bytes.
    /// @throws ArgumentNullException        bytes is a null pointer
    /// @throws ArgumentOutOfRangeException  size is below 2
    SocketAddress(const unsigned char* bytes, int size);

    /// size bytes, zero behind the family.
    /// @throws ArgumentNullException        family is null
    /// @throws ArgumentOutOfRangeException  size is below 2
    SocketAddress(const Sockets::AddressFamily& family, int size);

    /// Equal bytes; false for null and for another class.
    bool Equals(const Object& other) const override;

    /// The number in the first two bytes, which need not be a constant of AddressFamily.
    Sockets::AddressFamily Family() const;

    /// In bytes.
    int Size() const
    {
        return data.Length();
    }

    /// @throws IndexOutOfRangeException  index is negative, or not below Size()
    const Byte& operator[](int index) const
    {
        return data[index];
    }
    Byte& operator[](int index)
    {
        return data[index];
    }

    /// All Size() bytes, those of the family included.
    const Array<Byte>& Data() const
    {
        return data;
    }

private:
    Array<Byte> data;
};
} // namespace Tesmo::System::Net
