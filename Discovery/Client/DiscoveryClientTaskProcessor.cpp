#include "DiscoveryClientTaskProcessor.h"

#include "ChangeYourHostNameAction.h"
#include "ChangeYourIPConfigAction.h"
#include <Discovery/Pipeline/Required.h>

#include <Core/System/ObjectClosedException.h>
#include <Core/System/Threading/Thread.h>
#include <Discovery/Protocol/ByeMessage.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/HelloMessage.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <iterator>
#include <typeinfo>

namespace Zelkor::Discovery::Client
{
using Tesmo::IsNull;
using Tesmo::null;
using Tesmo::Sp;
using Tesmo::Up;
using Tesmo::System::EventArgs;
using Tesmo::System::Exception;
using Tesmo::System::Object;
using Tesmo::System::ObjectClosedException;
using Tesmo::System::String;
using Tesmo::System::Net::IPAddress;
using Tesmo::System::Net::Sockets::AddressFamily;
using Tesmo::System::Net::Sockets::SocketError;
using Tesmo::System::Net::Sockets::SocketException;
using Tesmo::System::Threading::Thread;

namespace
{
constexpr int DelaySteps = 10; // answers to one broadcast are spread over this many steps
constexpr int DelayStep = 10;  // milliseconds

struct SendFailure
{
    int code;
    const char* text;
    bool isFatal; ///< a restart is asked for
};

constexpr SendFailure SendFailures[] = {
    {SocketError::Shutdown, "Message not sent : socket shut down", true},
    {SocketError::Interrupted, "Message not sent : socket interrupted", true},
    {SocketError::NotSocket, "Socket error : Operation attempted on a non-socket object.", true},
    {SocketError::AddressNotAvailable, "Message not sent : address not available.", false},
    {SocketError::NetworkUnreachable, "Message not sent : network unreachable.", false},
    {SocketError::ConnectionReset, "Socket error : remote peer returned a \"Port Unreachable\" ICMP packet.", false},
};

/// An IPv4 address as a number, the first byte the most significant.
std::uint32_t NumberOf(const IPAddress& address)
{
    const std::uint32_t lowByteFirst = address.Address();
    return lowByteFirst << 24 | (lowByteFirst & 0xFF00) << 8 | (lowByteFirst >> 8 & 0xFF00) | lowByteFirst >> 24;
}

bool IsValid(const NICConfig& config)
{
    if (config.IPAddress.AddressFamily() != AddressFamily::InterNetwork ||
        config.SubNetMask.AddressFamily() != AddressFamily::InterNetwork)
    {
        return false;
    }
    const std::uint32_t address = NumberOf(config.IPAddress);
    const std::uint32_t firstByte = address >> 24;
    const std::uint32_t mask = NumberOf(config.SubNetMask) & 0x7FFFFFFF; // bit 31 is not looked at
    const std::uint32_t lowestUpward = mask == 0 ? 0 : 0x7FFFFFFFU >> std::countr_zero(mask) << std::countr_zero(mask);
    return firstByte != 0 && firstByte != 127 && address != 0xFFFFFFFF && mask == lowestUpward;
}

Sp<SignatureBroadcastMessage> BuildMessage(const DiscoveryHost& host, const Sp<NICConfig>& sourceNIC,
                                           const IPAddress& address, DiscoveryMessageType type)
{
    switch (type)
    {
    case DiscoveryMessageType::Hello:
        return Sp<SignatureBroadcastMessage>(new HelloMessage(DiscoveryVersion(), host, sourceNIC));
    case DiscoveryMessageType::Bye:
        return Sp<SignatureBroadcastMessage>(new ByeMessage(DiscoveryVersion(), host, sourceNIC));
    default:
        return Sp<SignatureBroadcastMessage>(
            new SignatureBroadcastMessage(DiscoveryVersion(), host, sourceNIC, address == IPAddress::Broadcast));
    }
}
} // namespace

DiscoveryClientTaskProcessor::DiscoveryClientTaskProcessor(const Sp<IDiscoverySocket>& givenSocket,
                                                           const Sp<IDiscoverySocketFactory>& givenFactory,
                                                           const Sp<IDiscoveryClientDataGateway>& givenGateway)
    : DiscoveryClientTaskProcessor(givenSocket, givenFactory, givenGateway, "ClientTaskProcessor")
{
}

DiscoveryClientTaskProcessor::DiscoveryClientTaskProcessor(const Sp<IDiscoverySocket>& givenSocket,
                                                           const Sp<IDiscoverySocketFactory>& givenFactory,
                                                           const Sp<IDiscoveryClientDataGateway>& givenGateway,
                                                           const String& channelName)
    : DiscoveryTaskProcessor(givenSocket, channelName),
      socketFactory(Required(givenFactory)),
      gateway(Required(givenGateway))
{
}

void DiscoveryClientTaskProcessor::EnqueueTask(const Object&, const EventArgs& args)
{
    if (IsNull(args))
    {
        throw std::bad_cast();
    }
    tasks.Enqueue(Sp<EventArgs>(new ClientActionArgs(dynamic_cast<const ClientActionArgs&>(args))));
}

void DiscoveryClientTaskProcessor::ProcessTask()
{
    Sp<EventArgs> next;
    if (!tasks.TryDequeue(next))
    {
        return; // a count without a task is the signal of Stop
    }
    const auto& task = dynamic_cast<const ClientActionArgs&>(*next);
    switch (task.Action->Type)
    {
    case ClientActionType::BroadcastSignature:
        SendHost(task, DiscoveryMessageType::SignatureBroadcast);
        break;
    case ClientActionType::Hello:
        SendHost(task, DiscoveryMessageType::Hello);
        break;
    case ClientActionType::ChangeYourIPConfig:
        ChangeIPConfig(task);
        break;
    case ClientActionType::ChangeYourHostName:
        ChangeHostName(task);
        break;
    }
}

void DiscoveryClientTaskProcessor::SendHost(const ClientActionArgs& task, DiscoveryMessageType type)
{
    DiscoveryHost host;
    try
    {
        host = gateway->GetHost();
    }
    catch (const Exception& failure)
    {
        channel.Critical(
            "Sending of message aborted : exception caught during call to IDiscoveryClientDataGateway::GetHost !",
            failure);
        return;
    }
    if (type == DiscoveryMessageType::SignatureBroadcast)
    {
        Thread::Sleep(std::min(random.Next(DelaySteps), DelaySteps - 1) * DelayStep); // Next can give its bound
    }
    SendHostMessage(host, task.Address, type);
}

void DiscoveryClientTaskProcessor::ChangeIPConfig(const ClientActionArgs& task)
{
    const Sp<NICList> configs = dynamic_cast<const ChangeYourIPConfigAction&>(*task.Action).NICConfigs;
    Sp<NICConfig> offender;
    if (!ValidateIPConfigs(*configs, offender))
    {
        channel.Critical("A given IP config is invalid ! => Not changing and resending current signature.");
        channel.Critical(String::Format("Invalid IP config : {0}/{1}/{2}", offender->IPAddress, offender->SubNetMask,
                                        offender->DefaultGateway));
        ResendSignature(task);
        return;
    }
    channel.Standard("Changing IP Config");
    try
    {
        gateway->ChangeIPConfig(configs); // the new signature follows when the platform reports the change
    }
    catch (const Exception& failure)
    {
        channel.Critical("Exception caught during call to IDiscoveryClientDataGateway::ChangeIPConfig !", failure);
        channel.Critical("IP Config change returned an exception -> sending signature.");
        ResendSignature(task);
    }
}

void DiscoveryClientTaskProcessor::ChangeHostName(const ClientActionArgs& task)
{
    const String& hostName = dynamic_cast<const ChangeYourHostNameAction&>(*task.Action).HostName;
    channel.Standard("Changing HostName");
    try
    {
        gateway->ChangeHostName(hostName);
    }
    catch (const Exception& failure)
    {
        channel.Critical("Exception caught during call to IDiscoveryClientDataGateway::ChangeHostName !", failure);
        channel.Critical("HostName change returned an exception -> sending signature.");
        ResendSignature(task);
        return;
    }
    if (!gateway->RebootRequiredForHostNameChange())
    {
        ResendSignature(task);
    }
}

void DiscoveryClientTaskProcessor::ResendSignature(const ClientActionArgs& task)
{
    const Sp<ClientAction> signature(new ClientAction(ClientActionType::BroadcastSignature));
    EnqueueTask(*this, ClientActionArgs(signature, task.Address));
}

bool DiscoveryClientTaskProcessor::ValidateIPConfigs(const NICList& configs, Sp<NICConfig>& offender)
{
    const auto found =
        std::find_if(configs.begin(), configs.end(), [](const Sp<NICConfig>& config) { return !IsValid(*config); });
    if (found == configs.end())
    {
        return true;
    }
    offender = *found;
    return false;
}

void DiscoveryClientTaskProcessor::LogSending(DiscoveryMessageType type)
{
    channel.Standard("Sending message of type " + ToWireName(type));
}

void DiscoveryClientTaskProcessor::SendHostMessage(const DiscoveryHost& host, const IPAddress& address,
                                                   DiscoveryMessageType type)
{
    LogSending(type);
    if (host.NICs->Count() == 1)
    {
        SendMessage(*BuildMessage(host, (*host.NICs)[0], address, type), address, *socket);
    }
    else if (SendFromEachInterface(host, address, type) == 0)
    {
        SendMessage(*BuildMessage(host, Sp<NICConfig>(), address, type), address, *socket);
    }
}

void DiscoveryClientTaskProcessor::SendByeMessage()
{
    constexpr DiscoveryMessageType type = DiscoveryMessageType::Bye;
    LogSending(type);
    DiscoveryHost host;
    try
    {
        host = gateway->GetHost();
    }
    catch (const Exception& failure)
    {
        channel.Critical(
            "SendByeMessage aborted : exception caught during call to IDiscoveryClientDataGateway::GetHost !", failure);
        return;
    }
    const bool hasOneInterface = host.NICs->Count() == 1;
    if (!hasOneInterface && SendFromEachInterface(host, IPAddress::Broadcast, type) > 0)
    {
        return;
    }
    const Sp<IDiscoverySocket> carrier = CreateSocket(IPAddress::Any);
    if (!(carrier == null))
    {
        const Sp<NICConfig> sourceNIC = hasOneInterface ? (*host.NICs)[0] : Sp<NICConfig>();
        SendMessage(*BuildMessage(host, sourceNIC, IPAddress::Broadcast, type), IPAddress::Broadcast, *carrier);
    }
}

/// Sends the message once from each interface that a socket can be bound to.
/// @returns how often
int DiscoveryClientTaskProcessor::SendFromEachInterface(const DiscoveryHost& host, const IPAddress& address,
                                                        DiscoveryMessageType type)
{
    int sent = 0;
    for (const Sp<NICConfig>& nic : *host.NICs)
    {
        const Sp<SignatureBroadcastMessage> message = BuildMessage(host, nic, address, type);
        const Sp<IDiscoverySocket> carrier = CreateSocket(nic->IPAddress);
        if (!(carrier == null))
        {
            SendMessage(*message, address, *carrier);
            ++sent;
            carrier->Close();
        }
    }
    return sent;
}

/// Empty where no socket can be bound to the address.
Sp<IDiscoverySocket> DiscoveryClientTaskProcessor::CreateSocket(const IPAddress& localAddress)
{
    try
    {
        return socketFactory->Create(localAddress);
    }
    catch (const Exception& failure)
    {
        channel.Critical(String::Format("Exception caught while creating socket on address {0} ! ({1})", localAddress,
                                        failure.Message()),
                         failure);
        return {};
    }
}

void DiscoveryClientTaskProcessor::SendMessage(const DiscoveryMessage& message, const IPAddress& address,
                                               IDiscoverySocket& carrier)
{
    const String json = message.ToJSON();
    channel.Debug("Message (JSON) : " + json);
    try
    {
        SendText(json, address, carrier);
        channel.Standard("Message sent");
    }
    catch (const SocketException& failure)
    {
        HandleSendFailure(failure);
    }
    catch (const ObjectClosedException& failure)
    {
        channel.Critical("Message not sent : socket closed", failure);
        RaiseRestartRequested();
    }
}

/// Sends the text in code page 437, without a zero at its end. The receiving side reads ISO 8859-1 all the same.
void DiscoveryClientTaskProcessor::SendText(const String& json, const IPAddress& address, IDiscoverySocket& carrier)
{
    const Up<char[]> text = json.ToCCharArray();
    const int size = json.Length();
    Up<unsigned char[]> bytes(new unsigned char[static_cast<std::size_t>(size)]);
    std::transform(text.Get(), text.Get() + size, bytes.Get(), [](char c) { return static_cast<unsigned char>(c); });
    const Sp<IBroadcastProvider> provider = BroadcastProvider();
    if (address == IPAddress::Broadcast && !(provider == null))
    {
        channel.Debug("Sending message using broadcast provider...");
        provider->Send(bytes, size);
    }
    else
    {
        carrier.SendTo(bytes, size, address);
    }
}

void DiscoveryClientTaskProcessor::HandleSendFailure(const SocketException& failure)
{
    const int errorCode = failure.SocketErrorCode().Value();
    const auto* const known = std::find_if(std::begin(SendFailures), std::end(SendFailures),
                                           [errorCode](const SendFailure& row) { return row.code == errorCode; });
    const bool isKnown = known != std::end(SendFailures);
    const String text =
        isKnown ? String(known->text) : String::Format("Unexpected socket error  : {0} !", failure.Message());
    channel.Critical(text, failure);
    if (!isKnown || known->isFatal)
    {
        RaiseRestartRequested();
    }
}
} // namespace Zelkor::Discovery::Client
