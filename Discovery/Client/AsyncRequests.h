#pragma once

#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/Threading/EventWaitHandle.h>
#include <Core/System/Threading/Thread.h>
#include <Discovery/Client/RestartSpacing.h>
#include <Discovery/Log/DiscoveryChannel.h>

#include <chrono>
#include <functional>

namespace Zelkor::Discovery::Client
{
/// What the stages of a client may ask for.
enum class AsyncRequest
{
    None,
    Restart,
    Stop
};

/// Has the restarts and stops that a client's stages ask for done on a thread of its own, one after the other, and spaces
/// those that follow a failed start. Any thread may call anything except End, which alone waits for the work.
class AsyncRequests : public Tesmo::System::Object
{
public:
    /// Does the work, on the thread of this object. What it throws ends the process.
    using Work = std::function<void(AsyncRequest request)>;

    /// @param clientChannel  where accepted requests are logged; it must outlive this object
    AsyncRequests(const DiscoveryChannel& clientChannel, const Tesmo::Sp<RestartSpacing>& restartSpacing,
                  Work requestWork);

    /// Accepts the request, unless one is accepted already and no start has come after it: then it is dropped. During a
    /// start the first one is kept and accepted at its end.
    void Ask(AsyncRequest request);

    /// A start begins: it takes the place of a restart that waits for its time. Its stages have asked for nothing yet.
    void BeginStart();
    /// A start is over, whoever made it: requests are accepted from now on.
    void EndStart();
    /// A start could not build its socket: a restart comes when its time has come.
    void FailStart();

    /// A stop is over: drops a restart that waits for its time, because that stop is its answer.
    void Withdraw();

    /// Drops what is asked for and will be, and waits for the work that is under way. The last call.
    void End();

private:
    static void ThreadMain(Tesmo::System::Object& object);
    AsyncRequest Await();
    void Accept(AsyncRequest request);
    void Schedule(AsyncRequest request, std::chrono::steady_clock::duration held);
    void StartThread();

    const DiscoveryChannel& channel;
    const Work work;

    Tesmo::System::Object asyncLock; ///< guards all that follows; nothing is waited for under it
    Tesmo::Sp<RestartSpacing> spacing;
    std::chrono::steady_clock::time_point lastStart;
    std::chrono::steady_clock::time_point due;      ///< when the work on next may begin
    AsyncRequest next = AsyncRequest::None;         ///< accepted, its work has not begun
    AsyncRequest askedInStart = AsyncRequest::None; ///< to be accepted when the start is over
    bool isSpaced = false;                          ///< next has to wait for its time
    bool asyncPending = false;                      ///< requests are dropped
    bool isStarting = false;
    bool isEnding = false;
    bool isRunning = false; ///< asyncThread will look for a request once more
    Tesmo::Sp<Tesmo::System::Threading::Thread> asyncThread;
    Tesmo::System::Threading::EventWaitHandle changed; ///< has the thread look again
};
} // namespace Zelkor::Discovery::Client
