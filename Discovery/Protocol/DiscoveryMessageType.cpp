#include <Discovery/Protocol/DiscoveryMessageType.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ThrowSite.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace Zelkor::Discovery
{
using Tesmo::System::ArgumentException;
using Tesmo::System::String;

namespace
{
/// By number.
const std::array<String, 7>& WireNames()
{
    static const std::array<String, 7> names = {
        "SignatureBroadcast", "Hello", "Bye", "ChangeYourIPConfig", "SendYourSignature", "AllSendYourSignature",
        "ChangeYourHostName"};
    return names;
}
} // namespace

const String& ToWireName(DiscoveryMessageType type)
{
    const auto number = static_cast<std::size_t>(type);
    if (number >= WireNames().size())
    {
        throw ArgumentException(ThrowSite);
    }
    return WireNames()[number];
}

DiscoveryMessageType FromWireName(const String& name)
{
    const auto found = std::find(WireNames().begin(), WireNames().end(), name);
    if (found == WireNames().end())
    {
        throw ArgumentException(ThrowSite);
    }
    return static_cast<DiscoveryMessageType>(found - WireNames().begin());
}
} // namespace Zelkor::Discovery
