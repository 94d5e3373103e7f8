#pragma once

#include <Core/System/String.h>
#include <Core/System/Threading/Semaphore.h>
#include <Discovery/Log/DiscoveryChannel.h>

namespace Zelkor::Discovery
{
/// Counts the records that wait for a stage. Once 512 were outstanding at a time, it refuses every later one.
class StageGate
{
public:
    /// @param stageChannel  where refusals are logged; it must outlive the gate
    /// @param name          what a record is called there
    StageGate(const DiscoveryChannel& stageChannel, const char* name);

    /// Counts one more record, or refuses it with a log row. For one thread at a time.
    bool TryAdmit();

    /// Takes one count; blocks while there is none.
    void Wait();

    /// Adds a count that no record stands behind.
    /// @throws Exception  the semaphore failed
    void WakeUp();

private:
    bool TryCount();

    const DiscoveryChannel& channel;
    const char* recordName;
    Tesmo::System::Threading::Semaphore semaphore;
    int lastQueueCount = 0; ///< the count before the last accepted record; taking a count does not lower it
};
} // namespace Zelkor::Discovery
