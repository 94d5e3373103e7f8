#include "DiscoveryClientMessageParser.h"

#include <Discovery/Client/BroadcastSignatureAction.h>
#include <Discovery/Client/ChangeYourHostNameAction.h>
#include <Discovery/Client/ChangeYourIPConfigAction.h>
#include <Discovery/Client/ClientActionArgs.h>
#include <Discovery/Pipeline/Required.h>
#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>

#include <algorithm>
#include <iterator>

namespace Zelkor::Discovery::Client
{
using Tesmo::null, Tesmo::Sp, Tesmo::System::Exception, Tesmo::System::String, Tesmo::System::Net::IPAddress;

namespace
{
/// The hardware addresses of the hosts that a message is for; none at all where it is for every host that gets it.
using Addressees = std::optional<std::vector<MACAddress>>;

Addressees Everybody(const DiscoveryMessage&)
{
    return {};
}

template <class Message>
Addressees Target(const DiscoveryMessage& message)
{
    return message.Broadcast ? Addressees({dynamic_cast<const Message&>(message).TargetedMACAddress}) : Addressees();
}

Addressees OwnersOfAdapters(const DiscoveryMessage& message)
{
    std::vector<MACAddress> owners;
    for (const Sp<NICConfig>& config : *dynamic_cast<const ChangeYourIPConfigMessage&>(message).NewNICConfigs)
    {
        owners.push_back(config->MACAddress);
    }
    return owners;
}

Sp<ClientAction> SendSignature(const DiscoveryMessage&)
{
    return Sp<ClientAction>(new BroadcastSignatureAction());
}

Sp<ClientAction> ChangeIPConfig(const DiscoveryMessage& message)
{
    return Sp<ClientAction>(
        new ChangeYourIPConfigAction(dynamic_cast<const ChangeYourIPConfigMessage&>(message).NewNICConfigs));
}

Sp<ClientAction> ChangeHostName(const DiscoveryMessage& message)
{
    return Sp<ClientAction>(
        new ChangeYourHostNameAction(dynamic_cast<const ChangeYourHostNameMessage&>(message).NewHostName));
}

/// What is done with the messages of one type.
struct Rule
{
    DiscoveryMessageType type;
    Addressees (*addressees)(const DiscoveryMessage& message);       ///< a null pointer: nobody
    Sp<ClientAction> (*makeAction)(const DiscoveryMessage& message); ///< a null pointer: there is nothing to do
    const char* text;                                                ///< of the row for a message that is for me
    void (DiscoveryChannel::*log)(const String& text) const = &DiscoveryChannel::Standard; ///< its level
};

/// Types without a rule are for nobody, as is SignatureBroadcast, whose rule gives its rows alone.
constexpr Rule Rules[] = {
    {DiscoveryMessageType::SignatureBroadcast, nullptr, nullptr, "Message type : SignatureBroadcast",
     &DiscoveryChannel::Debug},
    {DiscoveryMessageType::ChangeYourIPConfig, OwnersOfAdapters, ChangeIPConfig, "Message type : ChangeYourIPConfig"},
    {DiscoveryMessageType::SendYourSignature, Target<SendYourSignatureMessage>, SendSignature,
     "Message type : SendYourSignature"},
    {DiscoveryMessageType::AllSendYourSignature, Everybody, SendSignature, "Message type : SendYourSignature"},
    {DiscoveryMessageType::ChangeYourHostName, Target<ChangeYourHostNameMessage>, ChangeHostName,
     "Message type : ChangeYourHostName"},
};

/// A null pointer where there is none.
const Rule* Find(DiscoveryMessageType type)
{
    const auto* const found =
        std::find_if(std::begin(Rules), std::end(Rules), [type](const Rule& rule) { return rule.type == type; });
    return found == std::end(Rules) ? nullptr : found;
}
} // namespace

DiscoveryClientMessageParser::DiscoveryClientMessageParser(const Sp<IDiscoveryClientDataGateway>& host)
    : gateway(Required(host))
{
}

DiscoveryClientMessageParser::DiscoveryClientMessageParser(const Sp<IDiscoveryClientDataGateway>& host,
                                                           const String& channelName)
    : DiscoveryMessageParser(channelName),
      gateway(Required(host))
{
}

void DiscoveryClientMessageParser::ProcessMessage(const String& text, const IPAddress& sender)
{
    const Sp<DiscoveryMessage> message = Deserialize(text);
    if (message == null)
    {
        return;
    }
    LogVersionMismatch(*message);
    const Rule* const rule = Find(message->GetMessageType());
    if (rule == nullptr || rule->addressees == nullptr || !IsMessageForMe(rule->addressees(*message)))
    {
        channel.Debug("Message not for me : ignoring");
        return;
    }
    (channel.*rule->log)(rule->text);
    if (rule->makeAction == nullptr)
    {
        channel.Standard("Message ignored");
        return;
    }
    const IPAddress replyAddress = message->Broadcast ? IPAddress::Broadcast : sender;
    ActionRequested.Invoke(*this, ClientActionArgs(rule->makeAction(*message), replyAddress));
}

/// Empty for a text that is no message.
Sp<DiscoveryMessage> DiscoveryClientMessageParser::Deserialize(const String& text)
{
    try
    {
        return Sp<DiscoveryMessage>(DiscoveryMessageDeserializer().Deserialize(text));
    }
    catch (const Exception& failure)
    {
        channel.Critical("Message dropped : bad format !", failure);
        return {};
    }
}

void DiscoveryClientMessageParser::LogVersionMismatch(const DiscoveryMessage& message)
{
    if (message.Version != DiscoveryVersion())
    {
        channel.Standard(String::Format(
            "Version mismatch with received message ! [{0}] <> [{1}] -> Received data maybe inconsistent.",
            DiscoveryVersion(), message.Version));
    }
}

bool DiscoveryClientMessageParser::IsMessageForMe(const Addressees& addressees)
{
    return !addressees || HasMACAddress(*addressees);
}

/// True where the host has one of the addresses.
bool DiscoveryClientMessageParser::HasMACAddress(const std::vector<MACAddress>& addresses)
{
    const Sp<MACList> own = GetOwnAddresses();
    return own != null &&
           std::find_first_of(own->begin(), own->end(), addresses.begin(), addresses.end()) != own->end();
}

/// Empty where the gateway fails.
Sp<DiscoveryClientMessageParser::MACList> DiscoveryClientMessageParser::GetOwnAddresses()
{
    try
    {
        return gateway->GetMACAddress();
    }
    catch (const Exception& failure)
    {
        channel.Critical(
            "Message ignored : exception caught during call to IDiscoveryClientDataGateway::GetMACAddress !", failure);
        return {};
    }
}
} // namespace Zelkor::Discovery::Client
