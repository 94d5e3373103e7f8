#include <Tests/Support/FakeGateway.h>
#include <Tests/Support/FakeSocket.h>

#include <Discovery/Client/ChangeYourHostNameAction.h>
#include <Discovery/Client/ChangeYourIPConfigAction.h>
#include <Discovery/Client/DiscoveryClientTaskProcessor.h>
#include <Discovery/Client/HelloAction.h>
#include <Discovery/Pipeline/CompleteWorker.h>
#include <Serialization.Json/JSONObject.h>
#include <Tests/Support/LogRecorder.h>

namespace Zelkor::Discovery::Client
{
using Net::IPAddress;
using Serialization::Json::JSONObject;

namespace
{
const IPAddress Requester(10, 0, 0, 9);

class Processor : public DiscoveryClientTaskProcessor
{
public:
    using DiscoveryClientTaskProcessor::DiscoveryClientTaskProcessor;
    using DiscoveryClientTaskProcessor::ProcessTask;
    void Enqueue(ClientAction* action, const IPAddress& address = IPAddress::Broadcast)
    {
        EnqueueTask(*this, ClientActionArgs(Sp<ClientAction>(action), address));
    }
    void Run(ClientAction* action, const IPAddress& address = IPAddress::Broadcast)
    {
        Enqueue(action, address);
        ProcessTask();
    }
};

ClientAction* Signature()
{
    return new ClientAction(ClientActionType::BroadcastSignature);
}

ClientAction* Config(const char* address)
{
    Sp<NICList> configs(new NICList);
    configs->Add(FakeGateway::MakeNIC("1", address));
    return new ChangeYourIPConfigAction(configs);
}

} // namespace

class DiscoveryClientTaskProcessorTests : public LogTest
{
protected:
    DiscoveryClientTaskProcessorTests()
    {
        processor.RestartRequested += EventHandler(*this, &LogTest::Count);
    }
    void AddNIC(const char* address)
    {
        gateway->host.AddNIC(FakeGateway::MakeNIC("00:00:00:00:00:01", address));
    }

    /// The log without its rows with the JSON text, and without the channel, which all rows have.
    Rows TakeLog()
    {
        const std::string channel = " ClientTaskProcessor: ";
        Rows rows = log.Take();
        std::erase_if(rows, [](const std::string& row) { return row.find("(JSON)") != std::string::npos; });
        for (std::string& row : rows)
        {
            EXPECT_EQ(channel, row.substr(1, channel.size()));
            row.replace(1, channel.size(), " ");
        }
        return rows;
    }

    /// What went out since the last call, as "socket: type, destination, address of the source NIC;".
    std::string TakeSent()
    {
        std::string told;
        std::map<std::string, Sp<FakeSocket>> senders = std::exchange(factory->sockets, {});
        senders["shared"] = socket;
        for (const auto& [name, sender] : senders)
        {
            for (const auto& [text, address] : std::exchange(sender->sent, {}))
            {
                const JSONObject message{String(text)};
                told += name + (sender->IsClosed() ? " (closed): " : ": ") +
                        message.GetString("DiscoveryMessageType").Utf8() + ", " + address + ", " +
                        message.OptObject("SourceNIC").OptString("IPAddress").Utf8() + ";";
            }
        }
        return told;
    }

    Sp<FakeGateway> gateway{new FakeGateway};
    Sp<FakeSocket> socket{new FakeSocket};
    Sp<FakeSocketFactory> factory{new FakeSocketFactory};
    CompleteWorker<Processor> processor{socket, factory, gateway};
};

TEST_F(DiscoveryClientTaskProcessorTests, AHostWithSeveralAdaptersSendsFromEachAndTheByeUsesSocketsOfItsOwn)
{
    using Row = std::tuple<const char*, const char*, const char*, const char*>; // an adapter that joins the host
    for (const auto& [added, answer, hello, bye] :
         {Row{"", "shared: SignatureBroadcast, 10.0.0.9, ;", "shared: Hello, 255.255.255.255, ;",
              "0.0.0.0: Bye, 255.255.255.255, ;"},
          Row{"10.0.0.1", "shared: SignatureBroadcast, 10.0.0.9, 10.0.0.1;",
              "shared: Hello, 255.255.255.255, 10.0.0.1;", "0.0.0.0: Bye, 255.255.255.255, 10.0.0.1;"},
          Row{"10.0.0.2",
              "10.0.0.1 (closed): SignatureBroadcast, 10.0.0.9, 10.0.0.1;"
              "10.0.0.2 (closed): SignatureBroadcast, 10.0.0.9, 10.0.0.2;",
              "10.0.0.1 (closed): Hello, 255.255.255.255, 10.0.0.1;"
              "10.0.0.2 (closed): Hello, 255.255.255.255, 10.0.0.2;",
              "10.0.0.1 (closed): Bye, 255.255.255.255, 10.0.0.1;"
              "10.0.0.2 (closed): Bye, 255.255.255.255, 10.0.0.2;"}})
    {
        std::string(added).empty() ? void() : AddNIC(added);
        processor.Run(Signature(), Requester);
        EXPECT_EQ(answer, TakeSent());
        processor.Run(new HelloAction(gateway->host));
        EXPECT_EQ(hello, TakeSent());
        processor.SendByeMessage();
        EXPECT_EQ(bye, TakeSent());
    }
    factory->refused = "10.0.0.1";
    TakeLog();
    processor.Run(Signature());
    EXPECT_EQ("10.0.0.2 (closed): SignatureBroadcast, 255.255.255.255, 10.0.0.2;", TakeSent());
    EXPECT_EQ((Rows{"S Sending message of type SignatureBroadcast",
                    "E Exception caught while creating socket on address 10.0.0.1 ! (The Socket operation failed.)",
                    "S Message sent"}),
              TakeLog());
}

TEST_F(DiscoveryClientTaskProcessorTests, WithoutATaskASocketOrAHostNothingIsSent)
{
    processor.ProcessTask(); // the wake-up of a stop
    factory->refused = "0.0.0.0";
    processor.SendByeMessage();
    gateway->failing = "GetHost";
    processor.SendByeMessage();
    processor.Run(Signature());
    EXPECT_EQ("", TakeSent());
    EXPECT_EQ(
        (Rows{"S Sending message of type Bye",
              "E Exception caught while creating socket on address 0.0.0.0 ! (The Socket operation failed.)",
              "S Sending message of type Bye",
              "E SendByeMessage aborted : exception caught during call to IDiscoveryClientDataGateway::GetHost !",
              "E Sending of message aborted : exception caught during call to IDiscoveryClientDataGateway::GetHost !"}),
        TakeLog());
    EXPECT_THROW(processor.EnqueueTask(processor, EventArgs()), std::bad_cast);
    EXPECT_THROW(processor.EnqueueTask(processor, null), std::bad_cast);
}

TEST_F(DiscoveryClientTaskProcessorTests, EachFailureOfASendHasItsRowAndMayAskForARestart)
{
    using Row = std::tuple<int, const char*, bool>;
    const Row rows[] = {{10058, "Message not sent : socket shut down", true},
                        {10004, "Message not sent : socket interrupted", true},
                        {10038, "Socket error : Operation attempted on a non-socket object.", true},
                        {10049, "Message not sent : address not available.", false},
                        {10051, "Message not sent : network unreachable.", false},
                        {10054, "Socket error : remote peer returned a \"Port Unreachable\" ICMP packet.", false},
                        {10040, "Unexpected socket error  : The Socket operation failed. !", true},
                        {ClosedObject, "Message not sent : socket closed", true}};
    AddNIC("10.0.0.1");
    for (const auto& [code, text, asksForRestart] : rows)
    {
        SCOPED_TRACE(code);
        socket->sendFailure = code;
        processor.Run(new HelloAction(gateway->host));
        EXPECT_EQ(asksForRestart, raised.WaitOne(0));
        EXPECT_EQ((Rows{"S Sending message of type Hello", std::string("E ") + text}), TakeLog());
    }
}

TEST_F(DiscoveryClientTaskProcessorTests, AProviderTakesOnlyWhatIsForEverybody)
{
    AddNIC("10.0.0.1");
    const Sp<FakeProvider> provider(new FakeProvider);
    provider->onSend = [] { ThrowFailure(10051); };
    processor.SetBroadcastProvider(provider);
    processor.Run(Signature(), Requester);
    EXPECT_EQ("", provider->types);
    EXPECT_EQ("shared: SignatureBroadcast, 10.0.0.9, 10.0.0.1;", TakeSent());
    processor.Run(Signature());
    EXPECT_EQ("SignatureBroadcast;", provider->types);
    EXPECT_EQ("", TakeSent());
    EXPECT_EQ("E Message not sent : network unreachable.", TakeLog().back());
    EXPECT_THROW(processor.SetBroadcastProvider(Sp<IBroadcastProvider>()), std::exception);
}

TEST_F(DiscoveryClientTaskProcessorTests, AddressesAndMasksAreValidated)
{
    using Row = std::tuple<const char*, const char*, bool>;
    for (const auto& [address, mask, isValid] :
         {Row{"10.0.0.1", "255.255.255.0", true}, Row{"10.0.0.1", "255.0.255.0", false},
          Row{"10.0.0.1", "255.255.0.255", false}, Row{"10.0.0.1", "0.0.0.0", true}, Row{"10.0.0.1", "128.0.0.0", true},
          Row{"10.0.0.1", "127.255.255.255", true}, Row{"10.0.0.1", "255.255.255.255", true},
          Row{"10.0.0.1", "0.0.0.1", false}, Row{"10.0.0.1", "64.0.0.0", true}, Row{"0.0.0.1", "255.0.0.0", false},
          Row{"127.0.0.1", "255.0.0.0", false}, Row{"126.255.255.255", "255.0.0.0", true},
          Row{"255.255.255.255", "255.0.0.0", false}, Row{"255.255.255.254", "255.0.0.0", true},
          Row{"1:2:3:4:5:6:7:8", "255.255.0.0", false}, Row{"10.0.0.1", "1:2:3:4:5:6:7:8", false}})
    {
        NICList configs;
        configs.Add(FakeGateway::MakeNIC("1", "10.0.0.1"));
        configs.Add(FakeGateway::MakeNIC("2", address, mask));
        Sp<NICConfig> offender;
        EXPECT_EQ(isValid, DiscoveryClientTaskProcessor::ValidateIPConfigs(configs, offender))
            << address << '/' << mask;
        EXPECT_TRUE(isValid || offender == configs[1]);
    }
    Sp<NICConfig> offender;
    EXPECT_TRUE(DiscoveryClientTaskProcessor::ValidateIPConfigs(NICList(), offender));
}

TEST_F(DiscoveryClientTaskProcessorTests,
       AChangeThatIsRefusedOrFailsOrNeedsNoRestartIsAnsweredByASignatureToTheRequester)
{
    using Row = std::tuple<const char*, ClientAction*, Rows>;
    const Rows changesName = {"S Changing HostName"};
    const Rows isInvalid = {"C A given IP config is invalid ! => Not changing and resending current signature.",
                            "C Invalid IP config : 127.0.0.1/255.0.0.0/255.255.255.255"};
    const Rows failsConfig = {"S Changing IP Config",
                              "E Exception caught during call to IDiscoveryClientDataGateway::ChangeIPConfig !",
                              "C IP Config change returned an exception -> sending signature."};
    const Rows failsName = {"S Changing HostName",
                            "E Exception caught during call to IDiscoveryClientDataGateway::ChangeHostName !",
                            "C HostName change returned an exception -> sending signature."};
    AddNIC("10.0.0.1");
    for (const auto& [failing, action, logged] :
         {Row{"", Config("127.0.0.1"), isInvalid}, Row{"ChangeIPConfig", Config("10.0.0.2"), failsConfig},
          Row{"ChangeHostName", new ChangeYourHostNameAction("X"), failsName},
          Row{"", Config("10.0.0.2"), {"S Changing IP Config"}},
          Row{"", new ChangeYourHostNameAction("X"), changesName},
          Row{"no reboot", new ChangeYourHostNameAction("X"), changesName}})
    {
        gateway->failing = failing;
        gateway->rebootRequired = gateway->failing != "no reboot";
        processor.Run(action, Requester);
        EXPECT_EQ(logged, TakeLog());
        processor.ProcessTask();
        TakeLog();
        const bool isAnswered = logged.size() > 1 || !gateway->rebootRequired;
        EXPECT_EQ(isAnswered ? "shared: SignatureBroadcast, 10.0.0.9, 10.0.0.1;" : "", TakeSent());
    }
    EXPECT_EQ("1 configs;name X;1 configs;name X;name X;", gateway->calls); // the refused one is not among them
}
} // namespace Zelkor::Discovery::Client
