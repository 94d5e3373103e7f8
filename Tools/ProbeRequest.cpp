#include "ProbeRequest.h"

#include <Core/System/ArgumentException.h>
#include <Discovery/Protocol/AllSendYourSignatureMessage.h>
#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>

namespace Zelkor::Discovery::Tools
{
using Tesmo::Sp, Tesmo::System::ArgumentException, Tesmo::System::String, Tesmo::System::Net::IPAddress;

namespace
{
void Require(bool condition, const char* message)
{
    if (!condition)
    {
        throw ArgumentException(message, ThrowSite);
    }
}

bool IsForEverybody(const ProbeOptions& options)
{
    return options.to.Equals(IPAddress::Broadcast);
}

Sp<DiscoveryMessage> MakeSignatureRequest(const ProbeOptions& options)
{
    if (IsForEverybody(options))
    {
        Require(options.arguments.size() == 1, "signature needs a hardware address, or --to");
        return Sp<DiscoveryMessage>(new SendYourSignatureMessage(DiscoveryVersion(), MACAddress(options.arguments[0])));
    }
    Require(options.arguments.empty(), "with --to, signature takes no hardware address");
    return Sp<DiscoveryMessage>(new SendYourSignatureMessage(DiscoveryVersion()));
}

Sp<DiscoveryMessage> MakeIPConfigRequest(const ProbeOptions& options)
{
    const std::vector<String>& words = options.arguments;
    Require(words.size() == 3 || words.size() == 4, "ipconfig needs MAC ADDRESS MASK [GATEWAY]");
    Sp<NICConfig> config(
        new NICConfig("", MACAddress(words[0]), IPAddress::Parse(words[1]), IPAddress::Parse(words[2]), "Unknown"));
    if (words.size() == 4)
    {
        config->DefaultGateway = IPAddress::Parse(words[3]);
        config->HasDefaultGateway = true;
    }
    Sp<NICList> configs(new NICList());
    configs->Add(config);
    return Sp<DiscoveryMessage>(new ChangeYourIPConfigMessage(DiscoveryVersion(), configs));
}

Sp<DiscoveryMessage> MakeHostNameRequest(const ProbeOptions& options)
{
    const std::vector<String>& words = options.arguments;
    if (IsForEverybody(options))
    {
        Require(words.size() == 2, "hostname needs a name and a hardware address, or --to");
        return Sp<DiscoveryMessage>(new ChangeYourHostNameMessage(DiscoveryVersion(), words[0], MACAddress(words[1])));
    }
    Require(words.size() == 1, "with --to, hostname takes a name alone");
    return Sp<DiscoveryMessage>(new ChangeYourHostNameMessage(DiscoveryVersion(), words[0]));
}

Sp<DiscoveryMessage> MakeByName(const ProbeOptions& options)
{
    if (options.request == "all")
    {
        Require(options.arguments.empty(), "all takes no arguments");
        return Sp<DiscoveryMessage>(new AllSendYourSignatureMessage(DiscoveryVersion()));
    }
    if (options.request == "signature")
    {
        return MakeSignatureRequest(options);
    }
    if (options.request == "ipconfig")
    {
        return MakeIPConfigRequest(options);
    }
    Require(options.request == "hostname", "unknown request");
    return MakeHostNameRequest(options);
}
} // namespace

Sp<DiscoveryMessage> MakeRequest(const ProbeOptions& options)
{
    const Sp<DiscoveryMessage> message = MakeByName(options);
    message->Broadcast = IsForEverybody(options);
    return message;
}
} // namespace Zelkor::Discovery::Tools
