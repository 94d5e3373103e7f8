#include "HostSamples.h"

#include <Discovery/Protocol/AllSendYourSignatureMessage.h>
#include <Discovery/Protocol/ByeMessage.h>
#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Discovery/Protocol/DiscoveryVersion.h>
#include <Discovery/Protocol/HelloMessage.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>
#include <Tests/Support/LogRecorder.h>

using namespace Zelkor::Discovery;
using Zelkor::Serialization::Json::JSONObject, Zelkor::Serialization::Json::JSONStringer;

namespace
{
Sp<DiscoveryMessage> Read(const std::string& text)
{
    return Sp<DiscoveryMessage>(DiscoveryMessageDeserializer().Deserialize(String(text)));
}

std::string Text(const std::string& type, const std::string& broadcast, const std::string& rest)
{
    return R"({"DiscoveryMessageType":")" + type + R"(","DiscoveryVersion":"1.0.23","Broadcast":")" + broadcast + "\"" +
           rest + "}";
}

/// Each form of each message as an object and as its exact bytes.
std::vector<std::pair<Sp<DiscoveryMessage>, std::string>> Messages()
{
    const Tesmo::System::Version& version = DiscoveryVersion();
    const DiscoveryHost host = SampleHost();
    const MACAddress mac("00:1A:2B:3C:4D:5E");
    const Sp<NICList> nics(new NICList());
    nics->Add(SampleNIC());
    const std::string hostMember = R"(,"Host":)" + SampleHostText;
    const std::string both = hostMember + R"(,"SourceNIC":)" + SampleNICText;
    const std::string target = R"(,"TargetedMACAddress":"00:1A:2B:3C:4D:5E")";
    const std::string name = R"(,"NewHostName":"STUDIO5")";
    const auto row = [](DiscoveryMessage* message, const std::string& text)
    { return std::pair(Sp<DiscoveryMessage>(message), text); };
    return {
        row(new SignatureBroadcastMessage(version, host, SampleNIC(), true), Text("SignatureBroadcast", "True", both)),
        row(new SignatureBroadcastMessage(version, host, false), Text("SignatureBroadcast", "False", hostMember)),
        row(new HelloMessage(version, host, SampleNIC()), Text("Hello", "True", both)),
        row(new HelloMessage(version, host), Text("Hello", "True", hostMember)),
        row(new ByeMessage(version, host, SampleNIC()), Text("Bye", "True", both)),
        row(new ByeMessage(version, host), Text("Bye", "True", hostMember)),
        row(new SendYourSignatureMessage(version, mac), Text("SendYourSignature", "True", target)),
        row(new SendYourSignatureMessage(version), Text("SendYourSignature", "False", "")),
        row(new AllSendYourSignatureMessage(version), Text("AllSendYourSignature", "True", "")),
        row(new ChangeYourIPConfigMessage(version, nics),
            Text("ChangeYourIPConfig", "True", R"(,"NewNICConfigs":[)" + SampleNICText + "]")),
        row(new ChangeYourHostNameMessage(version, "STUDIO5", mac), Text("ChangeYourHostName", "True", name + target)),
        row(new ChangeYourHostNameMessage(version, "STUDIO5"), Text("ChangeYourHostName", "False", name)),
    };
}
} // namespace

TEST(MessageTests, EveryMessageIsWrittenInItsExactBytesAndReadBack)
{
    DiscoveryMessageDeserializer deserializer;
    for (const auto& [sample, text] : Messages())
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(text, sample->ToJSON().Utf8());
        const DiscoveryMessage& expected = *sample;
        std::string newer = text;
        newer.replace(newer.find("1.0.23"), 6, "2.1.7");
        std::string buffer = text;
        buffer.resize(2048); // zeroed, as the receiver's
        const auto* const bytes = reinterpret_cast<const unsigned char*>(buffer.data());
        for (const Sp<DiscoveryMessage>& message :
             {Sp<DiscoveryMessage>(deserializer.Deserialize(String::FromLatin1(bytes, 2048))),
              Sp<DiscoveryMessage>(deserializer.Deserialize(JSONObject(String(text))))})
        {
            const DiscoveryMessage& read = *message;
            EXPECT_EQ(typeid(expected), typeid(read));
            EXPECT_EQ(text, message->ToJSON().Utf8());
            message->ReadJSON(String(newer)); // into one that is filled
            EXPECT_EQ(newer, message->ToJSON().Utf8());
        }
    }
}

TEST(MessageTests, AMessageIsSerializedOnlyIntoAnOpenObjectAndNeedsAType)
{
    const auto [sample, text] = Messages().front();
    DiscoveryMessageDeserializer deserializer;
    JSONStringer stringer;
    stringer.BeginObject();
    deserializer.Serialize(*sample, stringer);
    EXPECT_EQ(text, stringer.EndObject().ToString().Utf8());
    EXPECT_THROW(deserializer.Serialize(*sample), FormatException); // it opens no object of its own
    LogRecorder log;
    for (const int number : {-1, 99})
    {
        EXPECT_THROW(ToWireName(static_cast<DiscoveryMessageType>(number)), ArgumentException);
        EXPECT_THROW(MakeMessage(static_cast<DiscoveryMessageType>(number)), FormatException);
    }
    EXPECT_EQ(Rows(2, "C DiscoveryMessageDeserializer: Message type not supported !!!"), log.Take());
}

TEST(MessageTests, TheBroadcastKeyIsAStringThatDecidesAboutTheAddress)
{
    using Row = std::tuple<const char*, bool, std::size_t>;
    const std::string line = "D DiscoveryMessage: No Broadcast key. Assuming broadcast message.";
    for (const auto& [member, broadcast, rows] :
         {Row{R"(,"Broadcast":"true")", true, 0}, Row{R"(,"Broadcast":"  TRUE ")", true, 0},
          Row{R"(,"BROADCAST":" false")", false, 0}, Row{"", true, 1}, Row{R"(,"Broadcast":true)", true, 1},
          Row{R"(,"Broadcast":false)", true, 1}})
    {
        SCOPED_TRACE(member);
        LogRecorder log;
        const Sp<DiscoveryMessage> message =
            Read(R"({"discoverymessagetype":"SendYourSignature","DISCOVERYVERSION":"9.9")" + std::string(member) +
                 R"(,"TargetedMACAddress":"7:0:0:0:0:1"} rest)");
        EXPECT_EQ(broadcast, message->Broadcast);
        EXPECT_EQ("9.9", message->Version.ToString().Utf8());
        EXPECT_EQ(Rows(rows, line), log.Take());
        EXPECT_EQ(broadcast ? "07:00:00:00:00:01" : "00:00:00:00:00:00",
                  dynamic_cast<SendYourSignatureMessage&>(*message).TargetedMACAddress.ToString().Utf8());
    }
}

TEST(MessageTests, AHelloWithoutSourceNICIsValidAndANewMessageIsForAll)
{
    EXPECT_TRUE(SignatureBroadcastMessage(Tesmo::System::Version(2, 1)).Broadcast);
    EXPECT_TRUE(SendYourSignatureMessage().Broadcast);
    LogRecorder log;
    HelloMessage message;
    EXPECT_EQ("1.0.23", message.Version.ToString().Utf8());
    message.SourceNIC = SampleNIC();
    message.ReadJSON(HelloMessage(message.Version, SampleHost()).ToJSON());
    EXPECT_TRUE(message.SourceNIC == null);
    EXPECT_EQ(Rows{"S SignatureBroadcastMessage: No Source NIC key. Ignoring."}, log.Take());
}

TEST(MessageTests, BadConfigurationsAreSkippedWithARowForEachOfTheFirstHundredAndOneForTheRest)
{
    const std::string start = "C ChangeYourIPConfigMessage: Failed to parse NIC config !!! Ignoring ";
    using Row = std::tuple<int, std::size_t, std::string>;
    for (const auto& [bad, rows, last] : {Row{3, 3, "this one..."}, Row{100, 100, "this one..."},
                                          Row{101, 101, "1 more..."}, Row{4000, 101, "3900 more..."}})
    {
        std::string elements = SampleNICText;
        for (int i = 0; i < bad; ++i)
        {
            elements += i % 3 == 0 ? ",1" : i % 3 == 1 ? R"(,{"FriendlyName":"x"})" : ",[]";
        }
        LogRecorder log;
        const Sp<DiscoveryMessage> message =
            Read(Text("ChangeYourIPConfig", "True", R"(,"NewNICConfigs":[)" + elements + "," + SampleNICText + "]"));
        EXPECT_EQ(2, dynamic_cast<ChangeYourIPConfigMessage&>(*message).NewNICConfigs->Count());
        Rows expected(rows, start + "this one...");
        expected.back() = start + last;
        EXPECT_EQ(expected, log.Take());
    }
}

TEST(MessageTests, TheFaultsOfADatagramAreFoundInOrder)
{
    const auto bad = [](const std::string& text) { return "C " + text + " !!! => BAD MESSAGE FORMAT !"; };
    const std::string noType = bad("DiscoveryMessage: No message type key");
    const std::string noVersion = bad("DiscoveryMessage: No version key");
    const std::string noHost = bad("SignatureBroadcastMessage: No Host key");
    const auto hello = [](const char* rest) { return R"({"DiscoveryMessageType":"Hello")" + std::string(rest) + "}"; };
    const auto text = [](const char* type, const std::string& rest) { return Text(type, "True", rest); };
    const std::tuple<std::string, const char*, std::string> rows[] = {
        {"", "FormatException", ""},
        {std::string(2048, '\0'), "FormatException", ""},
        {"[]", "FormatException", ""},
        {R"({"DiscoveryMessageType":"Hello)", "FormatException", ""},
        {"{}", "FormatException", noType},
        {R"({"DiscoveryMessageType":5})", "FormatException", noType},
        {R"({"DiscoveryMessageType":"hello","DiscoveryVersion":"1.0.23"})", "ArgumentException", ""},
        {hello(""), "FormatException", noVersion},
        {hello(R"(,"DiscoveryVersion":1)"), "FormatException", noVersion},
        {hello(R"(,"DiscoveryVersion":"1.x","Broadcast":"yes")"), "FormatException", ""},
        {hello(R"(,"DiscoveryVersion":"1.0","Broadcast":"yes")"), "FormatException",
         bad("DiscoveryMessage: No valid value for Broadcast key")},
        {text("SignatureBroadcast", R"(,"Host":[])"), "FormatException", noHost},
        {text("Bye", ""), "FormatException", noHost},
        {text("SendYourSignature", R"(,"TargetedMACAddress":1)"), "FormatException",
         bad("SendYourSignatureMessage: No targeted MAC address")},
        {text("ChangeYourIPConfig", R"(,"NewNICConfigs":{})"), "FormatException",
         bad("ChangeYourIPConfigMessage: No \"New NIC Configs\" key")},
        {text("ChangeYourHostName", R"(,"TargetedMACAddress":"1")"), "FormatException",
         bad("ChangeYourHostNameMessage: No \"New HostName\" key")},
        {text("ChangeYourHostName", R"(,"NewHostName":"n")"), "FormatException",
         bad("ChangeYourHostNameMessage: No \"Targeted MACAddress\" key")},
        {text("Hello", R"(,"Host":{"DeviceType":""})"), "ArgumentException", ""}, // nested records fail silently
        {text("Hello", R"(,"Host":)" + SampleHostText + R"(,"SourceNIC":{})"), "ArgumentException", ""},
        {text("SendYourSignature", R"(,"TargetedMACAddress":"100")"), "OverflowException", ""},
    };
    for (const auto& [datagram, failure, logged] : rows)
    {
        SCOPED_TRACE(datagram);
        LogRecorder log;
        try
        {
            Read(datagram);
            ADD_FAILURE() << "was read";
        }
        catch (const Exception& thrown)
        {
            EXPECT_EQ(failure, thrown.GetType().Name().Utf8());
        }
        EXPECT_EQ(Rows(logged.empty() ? 0 : 1, logged), log.Take());
    }
    LogRecorder log;
    EXPECT_THROW(HelloMessage().ReadJSON("{}"), FormatException); // each message looks for its type itself
    EXPECT_EQ(Rows{noType}, log.Take());
}
