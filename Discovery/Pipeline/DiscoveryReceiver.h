#pragma once

#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/Up.h>
#include <Discovery/Pipeline/DiscoveryMessageParser.h>
#include <Discovery/Pipeline/DiscoveryWorker.h>

#include <atomic>

namespace Zelkor::Discovery
{
/// The first stage: blocks on the shared socket, turns each datagram into text and hands it to the parser. It alone
/// decides what a failed receive means: go on, end, or ask for a restart.
class DiscoveryReceiver : public DiscoveryWorker
{
public:
    /// @param sharedSocket  what is listened on; the stop of the worker closes it
    /// @param parser        takes what comes in; it must be started first
    DiscoveryReceiver(const Tesmo::Sp<IDiscoverySocket>& sharedSocket, const Tesmo::Sp<DiscoveryMessageParser>& parser);
    DiscoveryReceiver(const Tesmo::Sp<IDiscoverySocket>& sharedSocket, const Tesmo::Sp<DiscoveryMessageParser>& parser,
                      const Tesmo::System::String& channelName);

    /// Closes the socket under the thread and joins it.
    void Stop() override;

    /// Buffer size of the next receive in bytes: doubled after a datagram that did not fit, which is lost; never
    /// lowered, and not reset by a restart. UDP over IPv4 carries 65507 bytes at most (65535 less the headers of RFC
    /// 791 and RFC 768), so 65536 is the last doubling.
    static std::atomic<int> MessageSize;

private:
    static void ThreadMain(Tesmo::System::Object& worker);
    void Run();
    bool ReceiveOne(Tesmo::System::Net::IPEndPoint& sender);
    bool HandleFailure(const Tesmo::System::Net::Sockets::SocketException& failure);
    void EndWith(const Tesmo::System::String& text, const Tesmo::System::Exception& failure);

    Tesmo::Sp<DiscoveryMessageParser> messageParser;
};
} // namespace Zelkor::Discovery
