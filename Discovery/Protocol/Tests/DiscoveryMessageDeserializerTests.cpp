#include "WireSamples.h"
#include <Tests/Support/LogRecorder.h>

#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Tests/Support/CoreTest.h>

#include <thread>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Zelkor::Discovery;

namespace
{
/// The class of the failure that reading the text gives, and behind it the log rows.
std::vector<std::string> Outcome(const std::string& text)
{
    LogRecorder log;
    std::string outcome = "none";
    try
    {
        DiscoveryMessageDeserializer().Deserialize(String(text));
    }
    catch (const Exception& failure)
    {
        outcome = failure.GetType().Name().Utf8();
    }
    std::vector<std::string> rows = log.Take();
    rows.insert(rows.begin(), outcome);
    return rows;
}

using Row = std::tuple<std::string, std::vector<std::string>>; // a text and its outcome

void ExpectOutcomes(const std::vector<Row>& rows)
{
    for (const auto& [text, outcome] : rows)
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(outcome, Outcome(text));
    }
}

std::string Header(const std::string& type, const std::string& rest)
{
    return R"({"DiscoveryMessageType":")" + type + R"(","DiscoveryVersion":"1.0.23","Broadcast":"True")" + rest + "}";
}
} // namespace

TEST(DiscoveryMessageDeserializerTests, FindsTheFaultsOfADatagramInOrder)
{
    const std::string noType = "C DiscoveryMessage: No message type key !!! => BAD MESSAGE FORMAT !";
    const std::string noVersion = "C DiscoveryMessage: No version key !!! => BAD MESSAGE FORMAT !";
    const std::string badBroadcast = "C DiscoveryMessage: No valid value for Broadcast key !!! => BAD MESSAGE FORMAT !";
    const std::string noBroadcast = "D DiscoveryMessage: No Broadcast key. Assuming broadcast message.";
    ExpectOutcomes({
        {"", {"FormatException"}},
        {std::string(2048, '\0'), {"FormatException"}},
        {"[]", {"FormatException"}},
        {R"({"DiscoveryMessageType":"Hello)", {"FormatException"}},
        {"{}", {"FormatException", noType}},
        {R"({"DiscoveryMessageType":5})", {"FormatException", noType}},
        {R"({"DiscoveryMessageType":"hello","DiscoveryVersion":"1.0.23"})", {"ArgumentException"}},
        {R"({"DiscoveryMessageType":"Hello"})", {"FormatException", noVersion}},
        {R"({"DiscoveryMessageType":"Hello","DiscoveryVersion":1})", {"FormatException", noVersion}},
        {R"({"DiscoveryMessageType":"Hello","DiscoveryVersion":"1.x","Broadcast":"yes"})", {"FormatException"}},
        {R"({"DiscoveryMessageType":"Hello","DiscoveryVersion":"1.0","Broadcast":"yes"})",
         {"FormatException", badBroadcast}},
        {R"({"DiscoveryMessageType":"Hello","DiscoveryVersion":"1.0"})",
         {"FormatException", noBroadcast, "C SignatureBroadcastMessage: No Host key !!! => BAD MESSAGE FORMAT !"}},
        {R"({"discoverymessagetype":"AllSendYourSignature","DISCOVERYVERSION":"1.0"} rest)", {"none", noBroadcast}},
    });
}

TEST(DiscoveryMessageDeserializerTests, EachClassNamesTheKeyThatItMisses)
{
    const auto row = [](const char* type, const char* rest, const std::string& text) {
        return Row{Header(type, rest), {"FormatException", "C " + text + " !!! => BAD MESSAGE FORMAT !"}};
    };
    ExpectOutcomes({
        row("SignatureBroadcast", R"(,"Host":[])", "SignatureBroadcastMessage: No Host key"),
        row("Bye", "", "SignatureBroadcastMessage: No Host key"),
        row("SendYourSignature", R"(,"TargetedMACAddress":1)", "SendYourSignatureMessage: No targeted MAC address"),
        row("ChangeYourIPConfig", R"(,"NewNICConfigs":{})", "ChangeYourIPConfigMessage: No \"New NIC Configs\" key"),
        row("ChangeYourHostName", R"(,"TargetedMACAddress":"1")", "ChangeYourHostNameMessage: No \"New HostName\" key"),
        row("ChangeYourHostName", R"(,"NewHostName":"n")", "ChangeYourHostNameMessage: No \"Targeted MACAddress\" key"),
    });
}

TEST(DiscoveryMessageDeserializerTests, FailuresOfNestedRecordsTravelOutSilently)
{
    ExpectOutcomes({
        {Header("Hello", R"(,"Host":{"DeviceType":""})"), {"ArgumentException"}},
        {Header("SendYourSignature", R"(,"TargetedMACAddress":"100")"), {"OverflowException"}},
        {Header("Hello", R"(,"Host":)" + SampleHostText() + R"(,"SourceNIC":{})"), {"ArgumentException"}},
    });
}

TEST(DiscoveryMessageDeserializerTests, ThreadsReadAndLogAtTheSameTime)
{
    constexpr std::size_t rounds = 200;
    LogRecorder log;
    DiscoveryMessageDeserializer deserializer;
    const auto work = [&deserializer]
    {
        for (std::size_t i = 0; i < rounds; ++i)
        {
            deserializer.Deserialize(String(WireSamples()[6].text));
            EXPECT_THROW(deserializer.Deserialize("{}"), FormatException);
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    EXPECT_EQ(2 * rounds, log.Take().size());
}
