#include "LogRecorder.h"
#include "WireSamples.h"

#include <Corelib/Tests/CoreTest.h>
#include <Discovery/Protocol/DiscoveryLogger.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>

#include <atomic>
#include <thread>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Zelkor::Discovery;
using Zelkor::Serialization::Json::JSONObject;
using Zelkor::Serialization::Json::JSONStringer;

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

/// Counts rows; any thread.
class CountingStream : public LogStreams::ILogStream
{
public:
    using ILogStream::Write;

    void Write(const LogStreams::LogStreamChannel&, LogStreams::LogStreamLevel, int, const String&) override
    {
        ++rows;
    }

    std::atomic<int> rows = 0;
};

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
    using Row = std::tuple<std::string, std::vector<std::string>>;
    const Row rows[] = {
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
    };
    for (const auto& [text, outcome] : rows)
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(outcome, Outcome(text));
    }
}

TEST(DiscoveryMessageDeserializerTests, EachClassNamesTheKeyThatItMisses)
{
    const std::string end = " !!! => BAD MESSAGE FORMAT !";
    struct Row
    {
        const char* type;
        const char* rest;
        std::string row;
    };
    const Row rows[] = {
        {"SignatureBroadcast", R"(,"Host":[])", "C SignatureBroadcastMessage: No Host key"},
        {"Bye", "", "C SignatureBroadcastMessage: No Host key"},
        {"SendYourSignature", R"(,"TargetedMACAddress":1)", "C SendYourSignatureMessage: No targeted MAC address"},
        {"ChangeYourIPConfig", R"(,"NewNICConfigs":{})", "C ChangeYourIPConfigMessage: No \"New NIC Configs\" key"},
        {"ChangeYourHostName", R"(,"TargetedMACAddress":"1")", "C ChangeYourHostNameMessage: No \"New HostName\" key"},
        {"ChangeYourHostName", R"(,"NewHostName":"n")", "C ChangeYourHostNameMessage: No \"Targeted MACAddress\" key"},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.row);
        const std::vector<std::string> expected = {"FormatException", row.row + end};
        EXPECT_EQ(expected, Outcome(Header(row.type, row.rest)));
    }
}

TEST(DiscoveryMessageDeserializerTests, FailuresOfNestedRecordsTravelOutSilently)
{
    EXPECT_EQ(std::vector<std::string>{"ArgumentException"}, Outcome(Header("Hello", R"(,"Host":{"DeviceType":""})")));
    EXPECT_EQ(std::vector<std::string>{"OverflowException"},
              Outcome(Header("SendYourSignature", R"(,"TargetedMACAddress":"100")")));
    EXPECT_EQ(std::vector<std::string>{"ArgumentException"},
              Outcome(Header("Hello", R"(,"Host":)" + SampleHostText() + R"(,"SourceNIC":{})")));
}

TEST(DiscoveryMessageDeserializerTests, ReadsAnObjectByItsTextAndSerializesOnlyIntoAnOpenOne)
{
    DiscoveryMessageDeserializer deserializer;
    for (const WireSample& sample : WireSamples())
    {
        const Sp<DiscoveryMessage> read(deserializer.Deserialize(JSONObject(String(sample.text))));
        EXPECT_EQ(sample.text, read->ToJSON().Utf8());

        JSONStringer stringer;
        stringer.BeginObject();
        deserializer.Serialize(*read, stringer);
        EXPECT_EQ(sample.text, stringer.EndObject().ToString().Utf8());
        EXPECT_THROW(deserializer.Serialize(*read), FormatException); // it opens no object of its own
    }
}

TEST(DiscoveryMessageDeserializerTests, ThreadsReadAndLogAtTheSameTime)
{
    constexpr int rounds = 200;
    const Sp<CountingStream> stream(new CountingStream());
    DiscoveryLogger::Instance().SetStream(stream);
    DiscoveryMessageDeserializer deserializer;
    const auto work = [&deserializer]
    {
        for (int i = 0; i < rounds; ++i)
        {
            deserializer.Deserialize(String(WireSamples()[6].text));
            EXPECT_THROW(deserializer.Deserialize("{}"), FormatException);
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    EXPECT_EQ(2 * rounds, stream->rows);
    DiscoveryLogger::Instance().Close();
}
