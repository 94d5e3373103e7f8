#pragma once

#include <Core/System/EventHandler.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Discovery/Client/AsyncRequests.h>
#include <Discovery/Client/ClientAction.h>
#include <Discovery/Client/ClientState.h>
#include <Discovery/Client/DiscoveryClientIPChangeWatcher.h>
#include <Discovery/Client/DiscoveryClientMessageParser.h>
#include <Discovery/Client/DiscoveryClientTaskProcessor.h>
#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Client/RestartSpacing.h>
#include <Discovery/Log/DiscoveryChannel.h>
#include <Discovery/Pipeline/DiscoveryReceiver.h>
#include <Discovery/Pipeline/IBroadcastProvider.h>
#include <Discovery/Transport/DiscoveryPorts.h>
#include <Discovery/Transport/IDiscoverySocket.h>
#include <Discovery/Transport/IDiscoverySocketFactory.h>

#include <atomic>

namespace Zelkor::Discovery::Client
{
/// The client: owns the shared socket and the four stages, starts and stops them in order, says hello and goodbye, and
/// builds everything anew when a stage reports that its socket died. Any thread may call anything at any time, except
/// that the threads of the stages must call neither Start nor Stop nor SendByeMessage, which wait for them.
class DiscoveryClient : public Tesmo::System::Object
{
public:
    /// Binds the local port of clientPorts, 12000 by default, and starts nothing.
    /// @param host  the only way to the machine that the client stands for
    /// @throws std::exception   an argument is empty
    /// @throws SocketException  the local port can't be bound
    explicit DiscoveryClient(const Tesmo::Sp<IDiscoveryClientDataGateway>& host);
    DiscoveryClient(const Tesmo::Sp<IDiscoveryClientDataGateway>& host, const Tesmo::Sp<DiscoveryPorts>& clientPorts,
                    const Tesmo::Sp<RestartSpacing>& restartSpacing = Tesmo::Sp<RestartSpacing>(new RestartSpacing));
    /// With the default ports and SetBroadcastProvider.
    DiscoveryClient(const Tesmo::Sp<IDiscoveryClientDataGateway>& host, const Tesmo::Sp<IBroadcastProvider>& provider);
    /// Waits for a restart that is under way and drops one that is to come, then stops a running client. What runs in any
    /// other state, or after a stop that fails, is ended without a log row, producers first.
    ~DiscoveryClient() override;

    /// Starts the stages, consumers first, and queues a hello. Only logs when the client runs already.
    /// @throws SocketException  after a stop: the local port can't be bound; the client stays in Starting for good then
    void Start();

    /// Stops the stages, producers first, and says goodbye. Only logs when the client does not run. A restart that still
    /// waits for its time is dropped.
    /// @throws SocketException  the socket can't be shut down; the client stays in Stopping for good then
    void Stop();

    /// Queues a hello to everybody; logs and does nothing where the host can't be read. What is queued before the start
    /// waits for it; a stopped client does nothing. The same holds for the next two.
    void SendHelloMessage();

    /// An event handler: queues a signature to everybody in the same way. It uses neither argument.
    void SendSignature(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args);

    /// Says goodbye on the calling thread, at once or when a Start or Stop under way has ended.
    void SendByeMessage();

    /// Holds until the next stop, which a restart includes. Does nothing while the client is stopped.
    void SetBroadcastProvider(const Tesmo::Sp<IBroadcastProvider>& provider);

    /// Event handlers for any thread: stop and start again, or stop, on a thread of their own. While one is under way
    /// others are dropped, but for what is asked during a start: that is done when the start has ended. After AsyncStop
    /// all are dropped, until a Start. A restart whose start fails to build the socket is tried again, and one that
    /// follows a failed start waits (RestartSpacing); any other failure on that thread ends the process.
    void AsyncRestart(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args);
    void AsyncStop(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args);

    /// As it stands now; another thread may change it at any time.
    ClientState State() const
    {
        return state;
    }

    /// Part of the interface; nothing in the program raises them.
    Tesmo::System::EventHandler RestartRequested;
    Tesmo::System::EventHandler StopRequested;

private:
    void CreateSocket();
    void CreateWorkers();
    void HookEvents();
    void UnhookEvents();
    void LogCritical(const Tesmo::System::String& text);
    void EnqueueBroadcast(const Tesmo::Sp<ClientAction>& action);
    bool TryGetHost(const char* operation, DiscoveryHost& host);
    Tesmo::Sp<DiscoveryClientTaskProcessor> TaskProcessor() const;
    void DropStages();
    void Perform(AsyncRequest request);
    void StartAgain();

    Tesmo::Sp<DiscoveryPorts> ports;
    Tesmo::Sp<IDiscoverySocket> socket; ///< empty while the client is stopped
    Tesmo::Sp<IDiscoverySocketFactory> socketFactory;
    Tesmo::Sp<IDiscoveryClientDataGateway> gateway;
    Tesmo::Sp<DiscoveryClientMessageParser> messageParser;
    Tesmo::Sp<DiscoveryReceiver> receiver;
    Tesmo::Sp<DiscoveryClientTaskProcessor> taskProcessor; ///< guarded by processorLock
    Tesmo::Sp<DiscoveryClientIPChangeWatcher> ipChangeWatcher;
    Tesmo::System::Object processorLock;
    bool needsRebuild = false;
    DiscoveryChannel channel;
    AsyncRequests async;
    std::atomic<ClientState> state = ClientState::Unstarted;
    Tesmo::System::Object lifecycleLock; ///< held through Start and Stop; no worker may wait for it
};
} // namespace Zelkor::Discovery::Client
