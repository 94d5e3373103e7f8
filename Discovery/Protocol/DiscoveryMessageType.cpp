#include "DiscoveryMessageType.h"

#include <Core/System/ArgumentException.h>
#include <Core/System/FormatException.h>
#include <Discovery/Log/DiscoveryChannel.h>
#include <Discovery/Protocol/AllSendYourSignatureMessage.h>
#include <Discovery/Protocol/ByeMessage.h>
#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/HelloMessage.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>
#include <Discovery/Protocol/SignatureBroadcastMessage.h>

#include <algorithm>
#include <span>

namespace Zelkor::Discovery
{
using Tesmo::Up, Tesmo::System::ArgumentException, Tesmo::System::FormatException, Tesmo::System::String;

namespace
{
template <class Message>
Up<DiscoveryMessage> Make()
{
    return Up<DiscoveryMessage>(new Message());
}

struct MessageRow
{
    DiscoveryMessageType type;
    String wireName;
    Up<DiscoveryMessage> (*make)();
};

std::span<const MessageRow> Messages()
{
    using enum DiscoveryMessageType;
    static const MessageRow rows[] = {
        {SignatureBroadcast, "SignatureBroadcast", Make<SignatureBroadcastMessage>},
        {Hello, "Hello", Make<HelloMessage>},
        {Bye, "Bye", Make<ByeMessage>},
        {ChangeYourIPConfig, "ChangeYourIPConfig", Make<ChangeYourIPConfigMessage>},
        {SendYourSignature, "SendYourSignature", Make<SendYourSignatureMessage>},
        {AllSendYourSignature, "AllSendYourSignature", Make<AllSendYourSignatureMessage>},
        {ChangeYourHostName, "ChangeYourHostName", Make<ChangeYourHostNameMessage>},
    };
    return rows;
}

/// @returns the row that has the value in the column, or a null pointer
template <class T>
const MessageRow* Find(T MessageRow::*column, const T& value)
{
    const auto rows = Messages();
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const MessageRow& row) { return row.*column == value; });
    return found == rows.end() ? nullptr : &*found;
}
} // namespace

const String& ToWireName(DiscoveryMessageType type)
{
    const MessageRow* const row = Find(&MessageRow::type, type);
    if (row == nullptr)
    {
        throw ArgumentException(ThrowSite);
    }
    return row->wireName;
}

DiscoveryMessageType FromWireName(const String& name)
{
    const MessageRow* const row = Find(&MessageRow::wireName, name);
    if (row == nullptr)
    {
        throw ArgumentException(ThrowSite);
    }
    return row->type;
}

Up<DiscoveryMessage> MakeMessage(DiscoveryMessageType type)
{
    const MessageRow* const row = Find(&MessageRow::type, type);
    if (row == nullptr)
    {
        DiscoveryChannel("DiscoveryMessageDeserializer").Critical("Message type not supported !!!");
        throw FormatException(ThrowSite);
    }
    return row->make();
}
} // namespace Zelkor::Discovery
