#include "Benchmarks.h"
#include "RatioReporter.h"

#include <Discovery/Client/DiscoveryClientMessageParser.h>
#include <Discovery/Gateway/DiscoveryClientDataGatewayW32.h>
#include <Discovery/Pipeline/CompleteWorker.h>
#include <Discovery/Pipeline/DiscoveryReceiver.h>
#include <Discovery/Transport/DiscoverySocketUdpClient.h>

#include <arpa/inet.h>
#include <atomic>
#include <cstring>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace Bench
{
namespace
{
using namespace Tesmo;
using namespace Tesmo::System;
using namespace Zelkor::Discovery;
using namespace Zelkor::Discovery::Client;

constexpr int receivePort = 22000; ///< a free port of this benchmark's own
constexpr char request[] =
    R"({"DiscoveryMessageType":"AllSendYourSignature","DiscoveryVersion":"1.0.23","Broadcast":"True"})";

sockaddr_in Receiver()
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(receivePort);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// Sends the request once a round and waits until arrived has counted it.
void SendRounds(benchmark::State& state, const std::atomic<int>& arrived)
{
    const int sender = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const sockaddr_in receiver = Receiver();
    int sent = arrived;
    for (auto _ : state)
    {
        sendto(sender, request, sizeof(request) - 1, 0, reinterpret_cast<const sockaddr*>(&receiver), sizeof(receiver));
        arrived.wait(sent++);
    }
    close(sender);
}

/// Stands where the task processor's EnqueueTask does, without its limit of 512.
class TaskCounter : public Object
{
public:
    void Count(const Object&, const EventArgs&)
    {
        ++tasks;
        tasks.notify_one();
    }

    std::atomic<int> tasks = 0;
};

void RunProduct(benchmark::State& state)
{
    const Sp<IDiscoveryClientDataGateway> gateway(new DiscoveryClientDataGatewayW32());
    const Sp<IDiscoverySocket> shared(
        new DiscoverySocketUdpClient(receivePort, receivePort + 1, Net::IPAddress::Parse("127.0.0.1")));
    const Sp<DiscoveryClientMessageParser> parser(new CompleteWorker<DiscoveryClientMessageParser>(gateway));
    CompleteWorker<DiscoveryReceiver> receiver(shared, parser);
    TaskCounter counter;
    parser->ActionRequested += EventHandler(counter, &TaskCounter::Count);
    parser->Start();
    receiver.Start();
    SendRounds(state, counter.tasks);
    receiver.Stop();
    parser->Stop();
}

void RunLimit(benchmark::State& state)
{
    const int listener = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = Receiver();
    bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
    std::atomic<int> datagrams = 0;
    std::thread loop(
        [&]
        {
            char buffer[2048];
            sockaddr_in sender;
            socklen_t size = sizeof(sender);
            while (recvfrom(listener, buffer, sizeof(buffer), 0, reinterpret_cast<sockaddr*>(&sender), &size) > 0)
            {
                ++datagrams;
                datagrams.notify_one();
            }
        });
    SendRounds(state, datagrams);
    shutdown(listener, SHUT_RDWR);
    loop.join();
    close(listener);
}
} // namespace

void AddReceiveComparisons()
{
    Compare("From a peer's sendto to the task", 0, RunProduct, RunLimit);
}
} // namespace Bench
