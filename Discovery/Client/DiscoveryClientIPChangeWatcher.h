#pragma once

#include <Core/System/EventHandler.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/Threading/Thread.h>
#include <Discovery/Client/IDiscoveryClientDataGateway.h>
#include <Discovery/Log/DiscoveryChannel.h>

#include <atomic>

namespace Zelkor::Discovery::Client
{
/// Waits in the gateway for changes of the host's addresses and tells each by an event. Started once, stopped once.
class DiscoveryClientIPChangeWatcher final : public Tesmo::System::Object
{
public:
    /// @throws std::exception  host is empty
    explicit DiscoveryClientIPChangeWatcher(const Tesmo::Sp<IDiscoveryClientDataGateway>& host);
    /// Ends a thread that still runs.
    ~DiscoveryClientIPChangeWatcher() override;

    /// @throws ThreadStateException  started before
    void Start();

    /// Ends the wait and the thread.
    /// @throws ThreadStateException  not started
    void Stop();

    /// An address has changed. Raised on the watcher's thread; changes that come while a handler runs are not counted.
    Tesmo::System::EventHandler IPChanged;

private:
    static void ThreadMain(Tesmo::System::Object& watcher);
    void Run();
    bool TryWaitForChange(bool& hasChanged);

    Tesmo::Sp<Tesmo::System::Threading::Thread> thread;
    std::atomic<bool> stopRequested = false;
    Tesmo::Sp<IDiscoveryClientDataGateway> gateway;
    DiscoveryChannel channel;
};
} // namespace Zelkor::Discovery::Client
