#pragma once

#include <Core/System/Threading/Semaphore.h>
#include <Discovery/Client/DiscoveryWorker.h>
#include <Discovery/Client/IBroadcastProvider.h>

#include <atomic>

namespace Zelkor::Discovery
{
/// A thread that runs one task for each count of its semaphore. What a task is, and where it waits, is the business of
/// the class that derives from it.
class DiscoveryTaskProcessor : public DiscoveryWorker
{
public:
    explicit DiscoveryTaskProcessor(const Tesmo::Sp<IDiscoverySocket>& givenSocket);
    DiscoveryTaskProcessor(const Tesmo::Sp<IDiscoverySocket>& givenSocket, const Tesmo::System::String& channelName);

    /// An event handler: queues a task from any thread.
    virtual void EnqueueTask(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args) = 0;

    /// Ends the thread after the task that it works on; the others are dropped.
    /// @throws Exception  the semaphore failed
    void Stop() override;

    /// From then on messages to everybody go through the provider.
    /// @throws std::exception  provider is empty
    void SetBroadcastProvider(const Tesmo::Sp<IBroadcastProvider>& provider);

protected:
    /// Runs the next task, if there is one, on the thread of this worker. What it lets out ends the process.
    virtual void ProcessTask() = 0;

    /// True while the queue takes another task; otherwise logs the refusal. Once 512 tasks were outstanding at a time,
    /// it stays false. Called with the queue locked.
    bool HasRoom();

    /// Wakes the thread for a task that was queued.
    void CountTask();

    /// Empty unless one was set.
    Tesmo::Sp<IBroadcastProvider> BroadcastProvider() const;

private:
    static void ThreadMain(Tesmo::System::Object& worker);
    void Run();
    void LogRefusal();

    Tesmo::System::Threading::Semaphore semaphore;
    std::atomic<int> lastQueueCount = 0; ///< the count before the last accepted task; dequeuing does not lower it
    std::atomic<bool> stopRequested = false;
    Tesmo::Sp<IBroadcastProvider> broadcastProvider;
    Tesmo::System::Object providerLock;
};
} // namespace Zelkor::Discovery
