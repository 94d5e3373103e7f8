#pragma once

#include <Core/System/Collections/Generic/Queue.h>
#include <Core/System/Sp.h>
#include <Core/System/Threading/Lock.h>
#include <Discovery/Pipeline/StageGate.h>

namespace Zelkor::Discovery
{
/// The bounded queue before a stage: any thread puts records in, the stage's own takes them out. Once 512 were
/// outstanding at a time, every later one is refused.
template <class T>
class StageQueue
{
public:
    /// As those of StageGate.
    StageQueue(const DiscoveryChannel& stageChannel, const char* recordName) : gate(stageChannel, recordName) {}

    /// Queues the record, or refuses it with a log row.
    void Enqueue(const Tesmo::Sp<T>& record)
    {
        const Tesmo::System::Threading::Lock lock(records.SyncRoot());
        if (gate.TryAdmit()) // before it is queued: what is refused must never be in the queue
        {
            records.Enqueue(record);
        }
    }

    /// Blocks until there is a record for this call, or a WakeUp.
    void Wait()
    {
        gate.Wait();
    }

    /// @returns false where there is no record: the wait was ended by WakeUp
    bool TryDequeue(Tesmo::Sp<T>& record)
    {
        const Tesmo::System::Threading::Lock lock(records.SyncRoot());
        if (records.Count() == 0)
        {
            return false;
        }
        record = records.Dequeue();
        return true;
    }

    /// Ends a wait.
    /// @throws Exception  the semaphore failed
    void WakeUp()
    {
        gate.WakeUp();
    }

private:
    StageGate gate;
    Tesmo::System::Collections::Generic::Queue<Tesmo::Sp<T>> records; ///< its SyncRoot is the lock of the stage
};
} // namespace Zelkor::Discovery
