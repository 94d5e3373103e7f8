#pragma once

#include <Core/System/Array.h>
#include <Core/System/Byte.h>
#include <Core/System/String.h>

#include <array>
#include <cstdint>

namespace Zelkor::Discovery
{
/// A hardware address: six bytes in transmission order, all zero by default.
class MACAddress
{
public:
    static constexpr int Size = 6; ///< bytes

    MACAddress() = default;

    /// @throws ArgumentNullException  source is null
    /// @throws ArgumentException      source hasn't exactly six elements
    explicit MACAddress(const Tesmo::System::Array<Tesmo::System::Byte>& source);

    /// Reads hexadecimal groups separated by ':', of any number of digits; where there are fewer than six, the last bytes
    /// stay zero.
    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        a group is no number, or there are more than six
    /// @throws OverflowException      a group is over FF
    explicit MACAddress(const Tesmo::System::String& text);

    /// @throws ArgumentNullException  other is null
    MACAddress(const MACAddress& other);
    MACAddress& operator=(const MACAddress& other);
    virtual ~MACAddress() = default;

    /// Six pairs of upper-case digits: "00:1A:2B:3C:4D:5E".
    Tesmo::System::String ToString() const;

    /// False for null.
    bool operator==(const MACAddress& other) const;

private:
    std::array<std::uint8_t, Size> bytes = {};
};
} // namespace Zelkor::Discovery
