#include "StageGate.h"

#include <Core/System/Exception.h>
#include <Core/System/Threading/SemaphoreFullException.h>

namespace Zelkor::Discovery
{
using Tesmo::System::Exception, Tesmo::System::String, Tesmo::System::Threading::SemaphoreFullException;

namespace
{
constexpr int Capacity = 512; // records
}

StageGate::StageGate(const DiscoveryChannel& stageChannel, const char* name)
    : channel(stageChannel),
      recordName(name),
      semaphore(0, Capacity)
{
}

bool StageGate::TryAdmit()
{
    if (lastQueueCount + 1 <= Capacity - 1 && TryCount())
    {
        return true;
    }
    channel.Critical(
        String::Format("Semaphore is full ({0}) !!! Ignoring this {1}...", lastQueueCount + 1, recordName));
    return false;
}

/// False where the count of a WakeUp has taken the last place; from then on nothing is admitted (decision 117).
bool StageGate::TryCount()
{
    try
    {
        lastQueueCount = semaphore.Release();
        return true;
    }
    catch (const SemaphoreFullException&)
    {
        lastQueueCount = Capacity - 1;
        return false;
    }
}

void StageGate::Wait()
{
    semaphore.WaitOne();
}

void StageGate::WakeUp()
{
    try
    {
        semaphore.Release();
    }
    catch (const SemaphoreFullException&) // then there are counts enough to wake the stage
    {
    }
    catch (const Exception& failure)
    {
        channel.Critical("Semaphore error", failure);
        throw Exception(failure);
    }
}
} // namespace Zelkor::Discovery
