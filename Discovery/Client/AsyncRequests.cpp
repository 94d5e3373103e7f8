#include "AsyncRequests.h"

#include <Core/System/Threading/Lock.h>
#include <Discovery/Pipeline/Required.h>

#include <utility>

namespace Zelkor::Discovery::Client
{
using Tesmo::null, Tesmo::Sp, Tesmo::System::Threading::EventResetMode, Tesmo::System::Threading::Lock,
    Tesmo::System::Threading::ParameterizedThreadStart, Tesmo::System::Threading::Thread;

AsyncRequests::AsyncRequests(const DiscoveryChannel& clientChannel, const Sp<RestartSpacing>& restartSpacing,
                             Work requestWork)
    : channel(clientChannel),
      work(std::move(requestWork)),
      spacing(Required(restartSpacing)),
      changed(false, EventResetMode::AutoReset)
{
}

void AsyncRequests::Ask(AsyncRequest request)
{
    const Lock lock(asyncLock);
    if (isStarting)
    {
        askedInStart = askedInStart == AsyncRequest::None ? request : askedInStart; // decision 122
    }
    else if (!asyncPending)
    {
        Accept(request);
    }
}

void AsyncRequests::BeginStart()
{
    Withdraw();
    const Lock lock(asyncLock);
    isStarting = true;
    askedInStart = AsyncRequest::None;
}

void AsyncRequests::EndStart()
{
    const Lock lock(asyncLock);
    isStarting = false;
    asyncPending = false;
    lastStart = std::chrono::steady_clock::now();
    if (askedInStart != AsyncRequest::None)
    {
        Accept(askedInStart);
    }
}

void AsyncRequests::FailStart()
{
    const Lock lock(asyncLock);
    Schedule(AsyncRequest::Restart, {});
}

// decision 123
void AsyncRequests::Withdraw()
{
    const Lock lock(asyncLock);
    if (next != AsyncRequest::None && isSpaced)
    {
        next = AsyncRequest::None;
        asyncPending = false;
        changed.Set();
    }
}

void AsyncRequests::End()
{
    {
        const Lock lock(asyncLock);
        isEnding = true;
        next = AsyncRequest::None;
        changed.Set();
    }
    if (asyncThread != null) // nobody makes another one any more
    {
        asyncThread->Join();
    }
}

void AsyncRequests::Accept(AsyncRequest request)
{
    asyncPending = true;
    channel.Critical(request == AsyncRequest::Restart ? "Asynchronous restart triggered"
                                                      : "Asynchronous stop triggered");
    Schedule(request, std::chrono::steady_clock::now() - lastStart);
}

void AsyncRequests::Schedule(AsyncRequest request, std::chrono::steady_clock::duration held)
{
    if (isEnding)
    {
        return;
    }
    const int delay = request == AsyncRequest::Restart ? spacing->Next(held) : 0;
    next = request;
    isSpaced = delay != 0;
    due = std::chrono::steady_clock::now() + std::chrono::milliseconds(delay);
    changed.Set();
    if (!isRunning)
    {
        StartThread();
    }
}

void AsyncRequests::StartThread()
{
    if (asyncThread != null)
    {
        asyncThread->Join(); // it is about to end, and takes no lock any more
    }
    asyncThread.Reset(new Thread(ParameterizedThreadStart(ThreadMain)));
    asyncThread->Name("Restart");
    asyncThread->Start(*this);
    isRunning = true;
}

void AsyncRequests::ThreadMain(Object& object)
{
    auto& requests = dynamic_cast<AsyncRequests&>(object);
    for (AsyncRequest request = requests.Await(); request != AsyncRequest::None; request = requests.Await())
    {
        requests.work(request);
    }
}

/// The next request, when its time has come; None ends the thread.
AsyncRequest AsyncRequests::Await()
{
    for (;;)
    {
        std::chrono::milliseconds left(0);
        {
            const Lock lock(asyncLock);
            left = std::chrono::ceil<std::chrono::milliseconds>(due - std::chrono::steady_clock::now());
            if (next == AsyncRequest::None || left.count() <= 0)
            {
                isRunning = next != AsyncRequest::None;
                return std::exchange(next, AsyncRequest::None);
            }
        }
        changed.WaitOne(static_cast<int>(left.count())); // what is next may be another one afterwards
    }
}
} // namespace Zelkor::Discovery::Client
