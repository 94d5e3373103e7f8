#include <Tests/Support/FakeGateway.h>
#include <Tests/Support/FakeSocket.h>

#include <Discovery/Client/ChangeYourHostNameAction.h>
#include <Discovery/Client/ChangeYourIPConfigAction.h>
#include <Discovery/Client/CompleteWorker.h>
#include <Discovery/Client/DiscoveryClientTaskProcessor.h>
#include <Discovery/Client/HelloAction.h>
#include <Tests/Support/LogRecorder.h>

#include <tuple>
#include <typeinfo>

namespace Zelkor::Discovery::Client
{
using namespace Tesmo;
using namespace Tesmo::System;
using Net::IPAddress;
using testing::HasSubstr;
using testing::Not;

namespace
{
class Processor : public DiscoveryClientTaskProcessor
{
public:
    Processor(const Sp<FakeSocket>& shared, const Sp<FakeSocketFactory>& factory, const Sp<FakeGateway>& host)
        : DiscoveryClientTaskProcessor(shared, factory, host)
    {
        RestartRequested += EventHandler(*this, &Processor::Count);
    }
    void Enqueue(ClientAction* action, const IPAddress& address = IPAddress::Broadcast)
    {
        EnqueueTask(*this, ClientActionArgs(Sp<ClientAction>(action), address));
    }
    void Run(ClientAction* action, const IPAddress& address = IPAddress::Broadcast)
    {
        Enqueue(action, address);
        ProcessTask();
    }
    using DiscoveryClientTaskProcessor::ProcessTask;

    int restarts = 0;

private:
    void Count(const Object&, const EventArgs&)
    {
        restarts++;
    }
};

ClientAction* Signature()
{
    return new ClientAction(ClientActionType::BroadcastSignature);
}

ClientAction* Config(const char* address)
{
    Sp<FakeGateway::NICList> configs(new FakeGateway::NICList);
    configs->Add(FakeGateway::MakeNIC("1", address));
    return new ChangeYourIPConfigAction(configs);
}

} // namespace

class DiscoveryClientTaskProcessorTests : public LogTest
{
protected:
    DiscoveryClientTaskProcessorTests()
        : gateway(new FakeGateway),
          socket(new FakeSocket),
          factory(new FakeSocketFactory),
          processor(socket, factory, gateway)
    {
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

    Sp<FakeGateway> gateway;
    Sp<FakeSocket> socket;
    Sp<FakeSocketFactory> factory;
    CompleteWorker<Processor> processor;
};

TEST_F(DiscoveryClientTaskProcessorTests, AHostWithOneInterfaceOrNoneSendsOnTheSharedSocket)
{
    AddNIC("10.0.0.1");
    gateway->host.HostName = "\u00FC\u4E2D"; // code page 437 has the first alone
    processor.Run(Signature(), IPAddress(10, 0, 0, 9));
    processor.Run(new HelloAction(gateway->host));
    gateway->host.NICs->Clear();
    processor.Run(Signature());
    processor.ProcessTask(); // nothing is queued: the wake-up of a stop

    ASSERT_EQ(3u, socket->sent.size());
    EXPECT_EQ("10.0.0.9", socket->sent[0].address);
    EXPECT_THAT(socket->sent[0].text,
                HasSubstr(R"("SignatureBroadcast","DiscoveryVersion":"1.0.23","Broadcast":"False")"));
    EXPECT_THAT(socket->sent[0].text, HasSubstr(R"("SourceNIC":{)"));
    EXPECT_THAT(socket->sent[0].text, HasSubstr("\"HostName\":\"\x81?\""));
    EXPECT_EQ('}', socket->sent[0].text.back());
    EXPECT_THAT(socket->sent[1].text, HasSubstr(R"("Hello")"));
    EXPECT_THAT(socket->sent[2].text, HasSubstr(R"("Broadcast":"True")"));
    EXPECT_THAT(socket->sent[2].text, Not(HasSubstr("SourceNIC")));
    EXPECT_TRUE(factory->sockets.empty());
    EXPECT_EQ((Rows{"S Sending message of type SignatureBroadcast", "S Message sent", "S Sending message of type Hello",
                    "S Message sent", "S Sending message of type SignatureBroadcast", "S Message sent"}),
              TakeLog());
}

TEST_F(DiscoveryClientTaskProcessorTests, SeveralInterfacesSendOneDatagramEach)
{
    AddNIC("10.0.0.1");
    AddNIC("10.0.0.2");
    factory->refused = "10.0.0.1";
    processor.Run(Signature());

    EXPECT_TRUE(socket->sent.empty());
    ASSERT_EQ(1u, factory->sockets.size());
    const FakeSocket& carrier = *factory->sockets["10.0.0.2"];
    ASSERT_EQ(1u, carrier.sent.size());
    EXPECT_THAT(carrier.sent[0].text.substr(carrier.sent[0].text.find("SourceNIC")), HasSubstr("10.0.0.2"));
    EXPECT_TRUE(carrier.IsClosed());
    EXPECT_EQ((Rows{"S Sending message of type SignatureBroadcast",
                    "E Exception caught while creating socket on address 10.0.0.1 ! (The Socket operation failed.)",
                    "S Message sent"}),
              TakeLog());
}

TEST_F(DiscoveryClientTaskProcessorTests, TheByeUsesSocketsOfItsOwn)
{
    using Texts = std::vector<std::string>;
    using Row = std::tuple<Texts, Texts>; // interfaces that join the host, and the sockets' addresses then
    for (const auto& [interfaces, carriers] :
         {Row{{}, {"0.0.0.0"}}, Row{{"10.0.0.1"}, {"0.0.0.0"}}, Row{{"10.0.0.2"}, {"10.0.0.1", "10.0.0.2"}}})
    {
        std::for_each(interfaces.begin(), interfaces.end(), [this](const auto& added) { AddNIC(added.c_str()); });
        factory->sockets.clear();
        processor.SendByeMessage();
        EXPECT_EQ(carriers.size(), factory->sockets.size());
        for (const std::string& carrier : carriers)
        {
            const FakeSocket& made = *factory->sockets.at(carrier);
            ASSERT_EQ(1u, made.sent.size()) << carrier;
            EXPECT_EQ("255.255.255.255", made.sent[0].address);
            EXPECT_EQ(!interfaces.empty(), made.sent[0].text.find(R"("SourceNIC":{)") != std::string::npos);
            EXPECT_EQ(carriers.size() > 1, made.IsClosed());
        }
    }
    EXPECT_TRUE(socket->sent.empty());
}

TEST_F(DiscoveryClientTaskProcessorTests, WithoutASocketOrAHostNothingIsSent)
{
    factory->refused = "0.0.0.0";
    processor.SendByeMessage();
    gateway->failing = "GetHost";
    processor.SendByeMessage();
    processor.Run(Signature());
    EXPECT_TRUE(socket->sent.empty());
    EXPECT_EQ(
        (Rows{"S Sending message of type Bye",
              "E Exception caught while creating socket on address 0.0.0.0 ! (The Socket operation failed.)",
              "S Sending message of type Bye",
              "E SendByeMessage aborted : exception caught during call to IDiscoveryClientDataGateway::GetHost !",
              "E Sending of message aborted : exception caught during call to IDiscoveryClientDataGateway::GetHost !"}),
        TakeLog());
}

TEST_F(DiscoveryClientTaskProcessorTests, EachFailureOfASendHasItsRowAndMayAskForARestart)
{
    using Row = std::tuple<int, const char*, int>;
    const Row rows[] = {
        {10058, "Message not sent : socket shut down", 1},
        {10004, "Message not sent : socket interrupted", 1},
        {10038, "Socket error : Operation attempted on a non-socket object.", 1},
        {10049, "Message not sent : address not available.", 0},
        {10051, "Message not sent : network unreachable.", 0},
        {10054, "Socket error : remote peer returned a \"Port Unreachable\" ICMP packet.", 0},
        {10040, "Unexpected socket error  : The Socket operation failed. !", 1},
        {ClosedObject, "Message not sent : socket closed", 1},
    };
    AddNIC("10.0.0.1");
    for (const auto& [code, text, restarts] : rows)
    {
        SCOPED_TRACE(code);
        processor.restarts = 0;
        socket->sendFailure = code;
        processor.Run(new HelloAction(gateway->host));
        EXPECT_EQ(restarts, processor.restarts);
        EXPECT_EQ((Rows{"S Sending message of type Hello", std::string("E ") + text}), TakeLog());
    }
    socket->Shutdown();
    socket->Close();
    processor.restarts = 0;
    processor.Run(new HelloAction(gateway->host));
    EXPECT_EQ(0, processor.restarts); // closed on purpose
}

TEST_F(DiscoveryClientTaskProcessorTests, AProviderTakesOnlyWhatIsForEverybody)
{
    AddNIC("10.0.0.1");
    const Sp<FakeProvider> provider(new FakeProvider);
    provider->onSend = [] { ThrowFailure(10051); };
    processor.SetBroadcastProvider(provider);
    processor.Run(Signature(), IPAddress(10, 0, 0, 9));
    EXPECT_EQ("", provider->types);
    EXPECT_EQ(1u, socket->sent.size());
    processor.Run(Signature());
    EXPECT_EQ("SignatureBroadcast;", provider->types);
    EXPECT_EQ(1u, socket->sent.size());
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
        DiscoveryClientTaskProcessor::NICList configs;
        configs.Add(FakeGateway::MakeNIC("1", "10.0.0.1"));
        configs.Add(FakeGateway::MakeNIC("2", address, mask));
        Sp<NICConfig> offender;
        EXPECT_EQ(isValid, DiscoveryClientTaskProcessor::ValidateIPConfigs(configs, offender))
            << address << '/' << mask;
        EXPECT_TRUE(isValid || offender == configs[1]);
    }
    Sp<NICConfig> offender;
    EXPECT_TRUE(DiscoveryClientTaskProcessor::ValidateIPConfigs(DiscoveryClientTaskProcessor::NICList(), offender));
}

TEST_F(DiscoveryClientTaskProcessorTests, AChangeThatIsRefusedOrFailsIsAnsweredByASignatureToTheRequester)
{
    using Row = std::tuple<const char*, ClientAction*, Rows>;
    const Row rows[] = {
        {"",
         Config("127.0.0.1"),
         {"C A given IP config is invalid ! => Not changing and resending current signature.",
          "C Invalid IP config : 127.0.0.1/255.0.0.0/255.255.255.255"}},
        {"ChangeIPConfig",
         Config("10.0.0.2"),
         {"S Changing IP Config", "E Exception caught during call to IDiscoveryClientDataGateway::ChangeIPConfig !",
          "C IP Config change returned an exception -> sending signature."}},
        {"ChangeHostName",
         new ChangeYourHostNameAction("X"),
         {"S Changing HostName", "E Exception caught during call to IDiscoveryClientDataGateway::ChangeHostName !",
          "C HostName change returned an exception -> sending signature."}},
    };
    AddNIC("10.0.0.1");
    std::size_t answers = 0;
    for (const auto& [failing, action, logged] : rows)
    {
        gateway->failing = failing;
        processor.Run(action, IPAddress(10, 0, 0, 9));
        EXPECT_EQ(logged, TakeLog());
        processor.ProcessTask();
        TakeLog();
        ASSERT_EQ(++answers, socket->sent.size());
        EXPECT_EQ("10.0.0.9", socket->sent.back().address);
    }
    EXPECT_EQ("1 configs;name X;", gateway->calls); // the refused one is not among them
}

TEST_F(DiscoveryClientTaskProcessorTests, AChangeThatSucceedsSendsNothingButANameWithoutReboot)
{
    AddNIC("10.0.0.1");
    processor.Enqueue(Config("10.0.0.2"));
    processor.Enqueue(new ChangeYourHostNameAction("X"));
    for (int pass = 0; pass < 4; ++pass)
    {
        processor.ProcessTask();
    }
    EXPECT_TRUE(socket->sent.empty());
    gateway->rebootRequired = false;
    processor.Run(new ChangeYourHostNameAction("X"));
    processor.ProcessTask();
    EXPECT_EQ(1u, socket->sent.size());
}

TEST_F(DiscoveryClientTaskProcessorTests, WhatIsNoTaskAndWhatIsOneTooManyIsNotQueued)
{
    EXPECT_THROW(processor.EnqueueTask(processor, EventArgs()), std::bad_cast);
    EXPECT_THROW(processor.EnqueueTask(processor, null), std::bad_cast);
    for (int count = 0; count < 513; ++count)
    {
        EXPECT_TRUE(log.Take().empty()) << count;
        processor.Enqueue(Signature());
    }
    EXPECT_EQ(Rows{"C Semaphore is full (512) !!! Ignoring this task..."}, TakeLog());
}
} // namespace Zelkor::Discovery::Client
