#include "WireSamples.h"
#include <Tests/Support/LogRecorder.h>

#include <Core/System/Version.h>
#include <Discovery/Protocol/AllSendYourSignatureMessage.h>
#include <Discovery/Protocol/ChangeYourHostNameMessage.h>
#include <Discovery/Protocol/ChangeYourIPConfigMessage.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Discovery/Protocol/HelloMessage.h>
#include <Discovery/Protocol/SendYourSignatureMessage.h>
#include <Tests/Support/CoreTest.h>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Zelkor::Discovery;
using Zelkor::Serialization::Json::JSONObject;
using Zelkor::Serialization::Json::JSONStringer;

namespace
{
Sp<DiscoveryMessage> Read(const std::string& text)
{
    return Sp<DiscoveryMessage>(DiscoveryMessageDeserializer().Deserialize(String(text)));
}
} // namespace

TEST(MessageTests, EveryMessageIsWrittenInItsExactBytesAndReadBack)
{
    DiscoveryMessageDeserializer deserializer;
    for (const WireSample& sample : WireSamples())
    {
        SCOPED_TRACE(sample.text);
        EXPECT_EQ(sample.text, sample.message->ToJSON().Utf8());
        std::string buffer = sample.text;
        buffer.resize(2048); // zeroed, as the receiver's
        const auto* const bytes = reinterpret_cast<const unsigned char*>(buffer.data());
        const Sp<DiscoveryMessage> read(deserializer.Deserialize(String::FromLatin1(bytes, 2048)));
        const DiscoveryMessage& expected = *sample.message;
        const DiscoveryMessage& message = *read;
        EXPECT_EQ(typeid(expected), typeid(message));
        EXPECT_EQ(expected.GetMessageType(), message.GetMessageType());
        EXPECT_EQ(sample.text, message.ToJSON().Utf8());
        const Sp<DiscoveryMessage> readFromObject(deserializer.Deserialize(JSONObject(String(sample.text))));
        EXPECT_EQ(sample.text, readFromObject->ToJSON().Utf8());
    }
}

TEST(MessageTests, AMessageIsSerializedOnlyIntoAnOpenObject)
{
    const WireSample sample = WireSamples().front();
    DiscoveryMessageDeserializer deserializer;
    JSONStringer stringer;
    stringer.BeginObject();
    deserializer.Serialize(*sample.message, stringer);
    EXPECT_EQ(sample.text, stringer.EndObject().ToString().Utf8());
    EXPECT_THROW(deserializer.Serialize(*sample.message), FormatException); // it opens no object of its own
}

TEST(MessageTests, WhatIsNoTypeHasNoName)
{
    EXPECT_THROW(ToWireName(static_cast<DiscoveryMessageType>(7)), ArgumentException);
    EXPECT_THROW(ToWireName(static_cast<DiscoveryMessageType>(-1)), ArgumentException);
}

TEST(MessageTests, AMessageWithoutAnAddresseeIsForAllAndHasTheVersionOfTheProtocol)
{
    EXPECT_TRUE(SignatureBroadcastMessage(Tesmo::System::Version(2, 1)).Broadcast);
    EXPECT_TRUE(SendYourSignatureMessage().Broadcast);
    EXPECT_TRUE(ChangeYourHostNameMessage().Broadcast);
    EXPECT_EQ("1.0.23", HelloMessage().Version.ToString().Utf8());
}

TEST(MessageTests, ASignatureOwnsCopiesOfWhatItIsGiven)
{
    SignatureBroadcastMessage message;
    NICConfig nic = *SampleNIC();
    DiscoveryHostProduct product("Server", "88", "2.1", "Store");
    FileTransferInfos infos;
    infos.Infos->Add("Port", "21");
    message.AddNIC(nic);
    message.AddProduct(product);
    message.SetFileTransferInfos(infos);
    nic.MTU = "9000";
    product.ProductName = "Other";
    infos.Infos->Clear();
    EXPECT_TRUE(*message.Host.NICs->operator[](0) == *SampleNIC());
    EXPECT_EQ("Store", message.Host.Products->operator[](0)->ProductName.Utf8());
    EXPECT_EQ(1, message.Host.FileTransferInfos->Infos->Count());
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
            Read(R"({"DiscoveryMessageType":"SendYourSignature","DiscoveryVersion":"9.9")" + std::string(member) +
                 R"(,"TargetedMACAddress":"7:0:0:0:0:1"})");
        EXPECT_EQ(broadcast, message->Broadcast);
        EXPECT_EQ(std::vector<std::string>(rows, line), log.Take());
        EXPECT_EQ(broadcast ? "07:00:00:00:00:01" : "00:00:00:00:00:00",
                  dynamic_cast<SendYourSignatureMessage&>(*message).TargetedMACAddress.ToString().Utf8());
    }
}

TEST(MessageTests, AHelloWithoutSourceInterfaceIsValid)
{
    LogRecorder log;
    HelloMessage message;
    message.SourceNIC = SampleNIC();
    message.ReadJSON(HelloMessage(message.Version, SampleHost()).ToJSON());
    EXPECT_TRUE(message.SourceNIC == null);
    EXPECT_EQ(std::vector<std::string>{"S SignatureBroadcastMessage: No Source NIC key. Ignoring."}, log.Take());
}

TEST(MessageTests, BadConfigurationsAreSkippedWithARowForEachOfTheFirstHundredAndOneForTheRest)
{
    LogRecorder log;
    const auto readWithBadOnes = [](int count)
    {
        std::string elements = SampleNICText();
        for (int i = 0; i < count; ++i)
        {
            elements += i % 3 == 0 ? ",1" : i % 3 == 1 ? R"(,{"FriendlyName":"x"})" : ",[]";
        }
        const Sp<DiscoveryMessage> message =
            Read(R"({"DiscoveryMessageType":"ChangeYourIPConfig","DiscoveryVersion":"1.0.23","Broadcast":"True",)"
                 R"("NewNICConfigs":[)" +
                 elements + "," + SampleNICText() + "]}");
        EXPECT_EQ(2, dynamic_cast<ChangeYourIPConfigMessage&>(*message).NewNICConfigs->Count());
    };
    const std::string start = "C ChangeYourIPConfigMessage: Failed to parse NIC config !!! Ignoring ";
    using Row = std::tuple<int, int, std::string>;
    for (const auto& [bad, rows, last] : {Row{3, 3, "this one..."}, Row{100, 100, "this one..."},
                                          Row{101, 101, "1 more..."}, Row{4000, 101, "3900 more..."}})
    {
        SCOPED_TRACE(bad);
        readWithBadOnes(bad);
        Rows expected(static_cast<std::size_t>(rows), start + "this one...");
        expected.back() = start + last;
        EXPECT_EQ(expected, log.Take());
    }
}
