#pragma once

#include <Core/System/BoxEnum.h>
#include <Core/System/EnumName.h>
#include <Core/System/NoneFlagsAttribute.h>

#include <span>

namespace Tesmo::System::Net::Sockets
{
/// The constants of AddressFamily (winsock2.h: AF_INET and the like).
struct AddressFamilyConstants
{
    enum Constant
    {
        Unknown = -1,
        Unspecified = 0,
        Unix = 1,
        InterNetwork = 2,
        InterNetworkV6 = 23,
    };

    static constexpr EnumName Names[] = {
        {Unknown, "Unknown"},           {Unspecified, "Unspecified"},       {Unix, "Unix"},
        {InterNetwork, "InterNetwork"}, {InterNetworkV6, "InterNetworkV6"},
    };
};

/// By which Enum finds the names (see NamedEnum).
constexpr std::span<const EnumName> EnumNamesOf(AddressFamilyConstants::Constant)
{
    return AddressFamilyConstants::Names;
}

/// The kind of addresses that a socket or an end point has.
class AddressFamily : public BoxEnum<AddressFamilyConstants::Constant, NoneFlagsAttribute>
{
public:
    using enum AddressFamilyConstants::Constant;

    using BoxEnum::BoxEnum;
    /// A number that no constant has is kept, and prints in decimal.
    explicit AddressFamily(int number) : BoxEnum(static_cast<AddressFamilyConstants::Constant>(number)) {}
};
} // namespace Tesmo::System::Net::Sockets
