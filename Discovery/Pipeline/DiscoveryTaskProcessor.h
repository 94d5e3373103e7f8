#pragma once

#include <Discovery/Pipeline/DiscoveryWorker.h>
#include <Discovery/Pipeline/IBroadcastProvider.h>
#include <Discovery/Pipeline/StageQueue.h>

namespace Zelkor::Discovery
{
/// A thread that runs one task after the other from its bounded queue. The derived class says what a task is.
class DiscoveryTaskProcessor : public DiscoveryWorker
{
public:
    /// @param sharedSocket  what the tasks send from; the stop of the worker closes it
    explicit DiscoveryTaskProcessor(const Tesmo::Sp<IDiscoverySocket>& sharedSocket);
    DiscoveryTaskProcessor(const Tesmo::Sp<IDiscoverySocket>& sharedSocket, const Tesmo::System::String& channelName);

    /// An event handler: queues a task from any thread.
    virtual void EnqueueTask(const Tesmo::System::Object& sender, const Tesmo::System::EventArgs& args) = 0;

    /// Ends the thread after the task that it works on; the others are dropped.
    /// @throws Exception  the semaphore failed
    void Stop() override;

    /// From then on messages to everybody go through the provider.
    /// @throws std::exception  provider is empty
    void SetBroadcastProvider(const Tesmo::Sp<IBroadcastProvider>& provider);

protected:
    void RequestEnd() override;

    /// Runs the next task, if there is one, on the thread of this worker. An exception that leaves it ends the process.
    virtual void ProcessTask() = 0;

    /// Empty unless one was set.
    Tesmo::Sp<IBroadcastProvider> BroadcastProvider() const;

    StageQueue<Tesmo::System::EventArgs> tasks;

private:
    static void ThreadMain(Tesmo::System::Object& worker);
    void Run();

    Tesmo::Sp<IBroadcastProvider> broadcastProvider;
    Tesmo::System::Object providerLock;
};
} // namespace Zelkor::Discovery
