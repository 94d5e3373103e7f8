#include <Tests/Support/FakeGateway.h>

#include <Discovery/Client/ClientActionArgs.h>
#include <Discovery/Client/DiscoveryClientMessageParser.h>
#include <Discovery/Pipeline/CompleteWorker.h>
#include <Tests/Support/LogRecorder.h>

namespace Zelkor::Discovery::Client
{
namespace
{
constexpr const char* Own = "00:00:00:00:00:02";
constexpr const char* Foreign = "00:00:00:00:00:09";

class Parser : public DiscoveryClientMessageParser
{
public:
    explicit Parser(const Sp<IDiscoveryClientDataGateway>& host) : DiscoveryClientMessageParser(host)
    {
        ActionRequested += EventHandler(*this, &Parser::Keep);
    }

    /// @returns the task that the text gave, as "type address", or nothing
    std::string Take(const std::string& text)
    {
        task = "";
        ProcessMessage(String(text), Net::IPAddress(10, 0, 0, 9));
        return task;
    }

private:
    void Keep(const Object&, const EventArgs& args)
    {
        const auto& given = dynamic_cast<const ClientActionArgs&>(args);
        task = std::to_string(static_cast<int>(given.Action->Type)) + " " + given.Address.ToString().Utf8();
    }

    std::string task;
};

std::string Text(const std::string& type, const std::string& more, const std::string& version = "1.0.23")
{
    return R"({"DiscoveryMessageType":")" + type + R"(","DiscoveryVersion":")" + version + '"' + more + '}';
}

std::string Targeted(const std::string& mac)
{
    return R"(,"Broadcast":"True","TargetedMACAddress":")" + mac + R"(","NewHostName":"X")";
}

std::string NIC(const std::string& mac)
{
    return R"({"FriendlyName":"a","MACAddress":")" + mac +
           R"(","IPAddress":"1.2.3.4","SubNetMask":"255.0.0.0","DefaultGateway":"","MTU":"9"})";
}
} // namespace

class DiscoveryClientMessageParserTests : public LogTest
{
protected:
    DiscoveryClientMessageParserTests() : gateway(new FakeGateway), parser(gateway)
    {
        gateway->host.AddNIC(FakeGateway::MakeNIC("00:00:00:00:00:01", "10.0.0.1"));
        gateway->host.AddNIC(FakeGateway::MakeNIC(Own, "10.0.0.2"));
    }

    Sp<FakeGateway> gateway;
    CompleteWorker<Parser> parser;
};

TEST_F(DiscoveryClientMessageParserTests, TypeTargetAndKindOfDeliveryDecideWhatIsDone)
{
    const std::string alone = R"(,"Broadcast":"False","NewHostName":"X")";
    const std::string host = R"(,"Host":{"HostName":"","DeviceType":"","NICs":[],"Products":[]})";
    const char* const signature = "S MessageParser: Message type : SendYourSignature";
    const char* const hostName = "S MessageParser: Message type : ChangeYourHostName";
    const char* const config = "S MessageParser: Message type : ChangeYourIPConfig";
    const char* const notForMe = "D MessageParser: Message not for me : ignoring";
    const char* const badFormat = "E MessageParser: Message dropped : bad format !";
    const std::string toForeign = R"(,"NewNICConfigs":[)" + NIC(Foreign) + ']';
    const std::string toBoth = R"(,"NewNICConfigs":[)" + NIC(Foreign) + ',' + NIC(Own) + ']';
    using Row = std::tuple<std::string, const char*, const char*>;
    const Row rows[] = {{Text("AllSendYourSignature", ""), "0 255.255.255.255", signature},
                        {Text("AllSendYourSignature", alone), "0 10.0.0.9", signature},
                        {Text("SendYourSignature", alone), "0 10.0.0.9", signature},
                        {Text("SendYourSignature", Targeted(Own)), "0 255.255.255.255", signature},
                        {Text("SendYourSignature", Targeted(Foreign)), "", notForMe},
                        {Text("ChangeYourHostName", alone), "3 10.0.0.9", hostName},
                        {Text("ChangeYourHostName", Targeted(Own)), "3 255.255.255.255", hostName},
                        {Text("ChangeYourHostName", Targeted(Foreign)), "", notForMe},
                        {Text("ChangeYourIPConfig", alone + toBoth), "2 10.0.0.9", config},
                        {Text("ChangeYourIPConfig", alone + toForeign), "", notForMe},
                        {Text("ChangeYourIPConfig", R"(,"NewNICConfigs":[])"), "", notForMe},
                        {Text("Hello", alone + host), "", notForMe},
                        {Text("Bye", alone + host), "", notForMe},
                        {Text("SignatureBroadcast", alone + host), "", notForMe},
                        {"no JSON", "", badFormat},
                        {Text("Unknown", ""), "", badFormat},
                        {Text("SendYourSignature", "", "1.x"), "", badFormat}};
    for (const auto& [text, task, lastRow] : rows)
    {
        SCOPED_TRACE(text);
        EXPECT_EQ(task, parser.Take(text));
        EXPECT_EQ(lastRow, log.Take().back());
    }
}

TEST_F(DiscoveryClientMessageParserTests, AHostThatCannotTellItsAddressesIsNotMeant)
{
    gateway->failing = "GetMACAddress";
    for (const std::string& text :
         {Text("SendYourSignature", Targeted(Own)),
          Text("ChangeYourIPConfig", R"(,"Broadcast":"True","NewNICConfigs":[)" + NIC(Own) + ']')})
    {
        EXPECT_EQ("", parser.Take(text));
        EXPECT_EQ((Rows{"E MessageParser: Message ignored : exception caught during call to "
                        "IDiscoveryClientDataGateway::GetMACAddress !",
                        "D MessageParser: Message not for me : ignoring"}),
                  log.Take());
    }
}
} // namespace Zelkor::Discovery::Client
