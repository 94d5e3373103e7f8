#include "DiscoveryClientMessageParser.h"

#include "BroadcastSignatureAction.h"
#include "ChangeYourHostNameAction.h"
#include "ChangeYourIPConfigAction.h"
#include "ClientActionArgs.h"
#include <Discovery/Pipeline/Required.h>

#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>

#include <algorithm>

namespace Zelkor::Discovery::Client
{
using Tesmo::null;
using Tesmo::Sp;
using Tesmo::System::Exception;
using Tesmo::System::String;
using Tesmo::System::Net::IPAddress;

DiscoveryClientMessageParser::DiscoveryClientMessageParser(const Sp<IDiscoveryClientDataGateway>& givenGateway)
    : gateway(Required(givenGateway))
{
}

DiscoveryClientMessageParser::DiscoveryClientMessageParser(const Sp<IDiscoveryClientDataGateway>& givenGateway,
                                                           const String& channelName)
    : DiscoveryMessageParser(channelName),
      gateway(Required(givenGateway))
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
    const IPAddress replyAddress = message->Broadcast ? IPAddress::Broadcast : sender;
    if (!IsMessageForMe(*message))
    {
        channel.Debug("Message not for me : ignoring");
        return;
    }
    const Sp<ClientAction> action = MakeAction(*message);
    if (!(action == null))
    {
        ActionRequested.Invoke(*this, ClientActionArgs(action, replyAddress));
    }
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
    if (!(message.Version == DiscoveryVersion()))
    {
        channel.Standard(String::Format(
            "Version mismatch with received message ! [{0}] <> [{1}] -> Received data maybe inconsistent.",
            DiscoveryVersion(), message.Version));
    }
}

bool DiscoveryClientMessageParser::IsMessageForMe(const DiscoveryMessage& message)
{
    switch (message.GetMessageType())
    {
    case DiscoveryMessageType::AllSendYourSignature:
        return true;
    case DiscoveryMessageType::SendYourSignature:
        return !message.Broadcast ||
               HasMACAddress(dynamic_cast<const SendYourSignatureMessage&>(message).TargetedMACAddress);
    case DiscoveryMessageType::ChangeYourHostName:
        return !message.Broadcast ||
               HasMACAddress(dynamic_cast<const ChangeYourHostNameMessage&>(message).TargetedMACAddress);
    case DiscoveryMessageType::ChangeYourIPConfig:
        return HasMACAddressOf(*dynamic_cast<const ChangeYourIPConfigMessage&>(message).NewNICConfigs);
    default:
        return false;
    }
}

bool DiscoveryClientMessageParser::HasMACAddress(const MACAddress& address)
{
    const Sp<MACList> own = GetOwnAddresses();
    return !(own == null) && std::find(own->begin(), own->end(), address) != own->end();
}

bool DiscoveryClientMessageParser::HasMACAddressOf(const NICList& configs)
{
    const Sp<MACList> own = GetOwnAddresses();
    if (own == null)
    {
        return false;
    }
    const auto isNamed = [&configs](const MACAddress& address)
    {
        return std::any_of(configs.begin(), configs.end(),
                           [&address](const Sp<NICConfig>& config) { return config->MACAddress == address; });
    };
    return std::any_of(own->begin(), own->end(), isNamed);
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

/// Empty for the messages that ask for nothing.
Sp<ClientAction> DiscoveryClientMessageParser::MakeAction(const DiscoveryMessage& message)
{
    switch (message.GetMessageType())
    {
    case DiscoveryMessageType::SignatureBroadcast:
        channel.Debug("Message type : SignatureBroadcast");
        channel.Standard("Message ignored");
        return {};
    case DiscoveryMessageType::ChangeYourIPConfig:
        channel.Standard("Message type : ChangeYourIPConfig");
        return Sp<ClientAction>(
            new ChangeYourIPConfigAction(dynamic_cast<const ChangeYourIPConfigMessage&>(message).NewNICConfigs));
    case DiscoveryMessageType::SendYourSignature:
    case DiscoveryMessageType::AllSendYourSignature: // the same text for both
        channel.Standard("Message type : SendYourSignature");
        return Sp<ClientAction>(new BroadcastSignatureAction());
    case DiscoveryMessageType::ChangeYourHostName:
        channel.Standard("Message type : ChangeYourHostName");
        return Sp<ClientAction>(
            new ChangeYourHostNameAction(dynamic_cast<const ChangeYourHostNameMessage&>(message).NewHostName));
    default: // Hello, Bye
        return {};
    }
}
} // namespace Zelkor::Discovery::Client
