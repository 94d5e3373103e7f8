#include <Core/System/Net/Dns.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/InvalidOperationException.h>
#include <Core/System/Net/Sockets/SocketException.h>

#include <Platform/HostNames.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <mutex>

namespace Tesmo::System::Net
{
namespace
{
/// Runs one look-up at a time, because the platform answers in a static area.
Platform::HostEntry LookUp(const std::function<bool(Platform::HostEntry&)>& find)
{
    static std::mutex oneAtATime;
    Platform::HostEntry entry;
    bool isFound = false;
    {
        const std::lock_guard<std::mutex> lock(oneAtATime);
        isFound = find(entry);
    }
    if (!isFound)
    {
        throw InvalidOperationException(ThrowSite);
    }
    return entry;
}

Platform::HostEntry LookUp(const IPAddress& address)
{
    const Array<Byte> bytes = address.GetAddressBytes();
    const std::vector<unsigned char> raw(bytes.begin(), bytes.end());
    return LookUp([&raw](Platform::HostEntry& entry) { return Platform::FindHostByAddress(raw, entry); });
}

Platform::HostEntry LookUp(const String& hostNameOrAddress)
{
    NotNull(hostNameOrAddress);
    IPAddress address;
    if (IPAddress::TryParse(hostNameOrAddress, address))
    {
        return LookUp(address);
    }
    return LookUp([&hostNameOrAddress](Platform::HostEntry& entry)
                  { return Platform::FindHostByName(hostNameOrAddress.Utf8(), entry); });
}

Array<IPAddress> AddressesOf(const Platform::HostEntry& entry)
{
    std::vector<IPAddress> addresses;
    std::transform(entry.addresses.begin(), entry.addresses.end(), std::back_inserter(addresses),
                   [](const std::vector<unsigned char>& raw)
                   { return IPAddress(Array<Byte>(std::vector<Byte>(raw.begin(), raw.end()))); });
    return Array<IPAddress>(std::move(addresses));
}

IPHostEntry MakeHostEntry(const Platform::HostEntry& entry)
{
    std::vector<String> aliases;
    std::transform(entry.aliases.begin(), entry.aliases.end(), std::back_inserter(aliases),
                   [](const std::string& alias) { return String(alias); });
    return IPHostEntry(String(entry.name), Array<String>(std::move(aliases)), AddressesOf(entry));
}
} // namespace

Array<IPAddress> Dns::GetHostAddresses(const String& hostNameOrAddress)
{
    return AddressesOf(LookUp(hostNameOrAddress));
}

IPHostEntry Dns::GetHostEntry(const String& hostNameOrAddress)
{
    return MakeHostEntry(LookUp(hostNameOrAddress));
}

IPHostEntry Dns::GetHostEntry(const IPAddress& address)
{
    NotNull(address);
    return MakeHostEntry(LookUp(address));
}

String Dns::GetHostName()
{
    std::string name;
    if (const int code = Platform::ReadOwnHostName(name); code != 0)
    {
        throw Sockets::SocketException(Sockets::SocketError(code), ThrowSite);
    }
    return String(name);
}
} // namespace Tesmo::System::Net
