#pragma once

#include <Core/LogStream/LogStreamChannel.h>
#include <Core/System/EventHandler.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/Threading/Thread.h>
#include <Discovery/Client/ClientAction.h>
#include <Discovery/Client/ClientState.h>
#include <Discovery/Client/DiscoveryClientIPChangeWatcher.h>
#include <Discovery/Client/DiscoveryClientMessageParser.h>
#include <Discovery/Client/DiscoveryClientTaskProcessor.h>
#include <Discovery/Client/DiscoveryReceiver.h>
#include <Discovery/Client/IBroadcastProvider.h>
#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Transport/DiscoveryPorts.h>
#include <Discovery/Transport/IDiscoverySocket.h>
#include <Discovery/Transport/IDiscoverySocketFactory.h>

#include <atomic>

namespace Zelkor::Discovery::Client
{
/// The client: owns the shared socket and the four stages, starts and stops them in order, says hello and goodbye, and
/// builds everything anew when a stage reports that its socket died.
class DiscoveryClient : public Tesmo::System::Object
{
public:
    /// With the default ports.
    /// @throws std::exception   an argument is empty
    /// @throws SocketException  the local port can't be bound
    explicit DiscoveryClient(const Tesmo::Sp<IDiscoveryClientDataGateway>& gateway);
    DiscoveryClient(const Tesmo::Sp<IDiscoveryClientDataGateway>& gateway, const Tesmo::Sp<DiscoveryPorts>& ports);
    /// With the default ports and SetBroadcastProvider.
    DiscoveryClient(const Tesmo::Sp<IDiscoveryClientDataGateway>& gateway,
                    const Tesmo::Sp<IBroadcastProvider>& provider);
    /// Stops a running client and waits for a restart that is under way.
    ~DiscoveryClient() override;

    /// Starts the stages, consumers first, and queues a hello. Only logs when the client runs already.
    /// @throws SocketException  after a stop: the local port can't be bound; the client stays in Starting then
    void Start();

    /// Stops the stages, producers first, and says goodbye. Only logs when the client does not run.
    void Stop();

    /// Queues a hello to everybody; logs and does nothing where the host can't be read.
    void SendHelloMessage();

    /// An event handler: queues a signature to everybody in the same way. It uses neither argument.
    void SendSignature(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args);

    /// Says goodbye at once on the calling thread.
    void SendByeMessage();

    /// Holds until the next stop. Does nothing while the client is stopped.
    void SetBroadcastProvider(const Tesmo::Sp<IBroadcastProvider>& provider);

    /// Event handlers for any thread: stop and start again, or stop, on a thread of their own. While one is under way
    /// others are dropped; after AsyncStop all are, until a Start.
    void AsyncRestart(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args);
    void AsyncStop(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args);

    ClientState State() const
    {
        return state;
    }

    /// Part of the interface; nothing in the program raises them.
    Tesmo::System::EventHandler RestartRequested;
    Tesmo::System::EventHandler StopRequested;

private:
    using AsyncBody = void (*)(Tesmo::System::Object& client);

    void CreateSocket();
    void CreateWorkers();
    void HookEvents();
    void UnhookEvents();
    void LogCritical(const Tesmo::System::String& text);
    void EnqueueBroadcast(const Tesmo::Sp<ClientAction>& action);
    bool TryGetHost(const char* operation, DiscoveryHost& host);
    void RunAsync(const char* text, AsyncBody body);
    void JoinAsyncThread();
    static void RestartBody(Tesmo::System::Object& client);
    static void StopBody(Tesmo::System::Object& client);

    Tesmo::Sp<DiscoveryPorts> ports;
    Tesmo::Sp<IDiscoverySocket> socket; ///< empty while the client is stopped
    Tesmo::Sp<IDiscoverySocketFactory> socketFactory;
    Tesmo::Sp<IDiscoveryClientDataGateway> gateway;
    Tesmo::Sp<DiscoveryClientMessageParser> messageParser;
    Tesmo::Sp<DiscoveryReceiver> receiver;
    Tesmo::Sp<DiscoveryClientTaskProcessor> taskProcessor;
    Tesmo::Sp<DiscoveryClientIPChangeWatcher> ipChangeWatcher;
    Tesmo::Sp<Tesmo::System::Threading::Thread> asyncThread;
    std::atomic<bool> asyncPending = false;
    Tesmo::System::Object asyncLock; ///< guards asyncPending and asyncThread
    bool needsRebuild = false;
    Tesmo::System::LogStreams::LogStreamChannel channel;
    std::atomic<ClientState> state = ClientState::Unstarted;
    Tesmo::System::Object lifecycleLock; ///< held through Start and Stop; no worker may wait for it
};
} // namespace Zelkor::Discovery::Client
