#pragma once

#include <Core/System/Array.h>
#include <Core/System/Net/IPAddress.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

namespace Tesmo::System::Net
{
/// What the name service knows of one host.
class IPHostEntry : public Object
{
public:
    /// Copies all three.
    IPHostEntry(const String& name, const Array<String>& aliasNames, const Array<IPAddress>& addresses)
        : hostName(name),
          aliases(aliasNames),
          addressList(addresses)
    {
    }

    /// The name that the service has for the host, which may differ from the one looked up.
    const String& HostName() const
    {
        return hostName;
    }
    void HostName(const String& value)
    {
        hostName = value;
    }

    /// The host's further names; empty where there are none.
    const Array<String>& Aliases() const
    {
        return aliases;
    }
    void Aliases(const Array<String>& value)
    {
        aliases = value;
    }

    /// In the order of the name service.
    const Array<IPAddress>& AddressList() const
    {
        return addressList;
    }
    void AddressList(const Array<IPAddress>& value)
    {
        addressList = value;
    }

private:
    String hostName;
    Array<String> aliases;
    Array<IPAddress> addressList;
};
} // namespace Tesmo::System::Net
