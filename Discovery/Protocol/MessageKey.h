#pragma once

#include <Core/System/CallSite.h>
#include <Core/System/FormatException.h>
#include <Core/System/String.h>
#include <Discovery/Log/DiscoveryChannel.h>
#include <Serialization.Json/JSONObject.h>

namespace Zelkor::Discovery
{
/// A key of the messages, with the row that says what was wrong with it.
struct MessageKey
{
    Tesmo::System::String name;
    const char* channel;
    const char* complaint;

    /// @param value  receives the text under the key
    /// @throws FormatException  as Check does where there is none
    void Read(const Serialization::Json::JSONObject& message, Tesmo::System::String& value,
              Tesmo::System::CallSite site = Tesmo::System::CallSite::Here()) const
    {
        Check(message.TryGetValue(name, value), site);
    }

    /// @throws FormatException  the value is not good: missing or of another kind; logged, with the caller's place
    void Check(bool isGood, Tesmo::System::CallSite site = Tesmo::System::CallSite::Here()) const
    {
        if (!isGood)
        {
            DiscoveryChannel(channel).Critical(complaint);
            throw Tesmo::System::FormatException(site.file, site.line);
        }
    }
};

/// The keys without which a message is bad; "Broadcast" may be missing, but not be a text that is no boolean. Some of the
/// complaints spell a key differently from the wire.
// clang-format off
inline const MessageKey MessageTypeKey     = {"DiscoveryMessageType", "DiscoveryMessage",          "No message type key !!! => BAD MESSAGE FORMAT !"};
inline const MessageKey VersionKey         = {"DiscoveryVersion",     "DiscoveryMessage",          "No version key !!! => BAD MESSAGE FORMAT !"};
inline const MessageKey BroadcastKey       = {"Broadcast",            "DiscoveryMessage",          "No valid value for Broadcast key !!! => BAD MESSAGE FORMAT !"};
inline const MessageKey HostKey            = {"Host",                 "SignatureBroadcastMessage", "No Host key !!! => BAD MESSAGE FORMAT !"};
inline const MessageKey SignatureTargetKey = {"TargetedMACAddress",   "SendYourSignatureMessage",  "No targeted MAC address !!! => BAD MESSAGE FORMAT !"};
inline const MessageKey NewNICConfigsKey   = {"NewNICConfigs",        "ChangeYourIPConfigMessage", "No \"New NIC Configs\" key !!! => BAD MESSAGE FORMAT !"};
inline const MessageKey NewHostNameKey     = {"NewHostName",          "ChangeYourHostNameMessage", "No \"New HostName\" key !!! => BAD MESSAGE FORMAT !"};
inline const MessageKey HostNameTargetKey  = {"TargetedMACAddress",   "ChangeYourHostNameMessage", "No \"Targeted MACAddress\" key !!! => BAD MESSAGE FORMAT !"};
// clang-format on
} // namespace Zelkor::Discovery
