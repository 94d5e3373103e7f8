#pragma once

#include <Core/System/Threading/WaitHandle.h>

namespace Tesmo::System::Threading
{
/// Counts permits between threads: Release adds permits, WaitOne takes one and blocks while none is left.
/// Every operation may be called from any thread.
class Semaphore : public WaitHandle
{
public:
    /// @param initialCount  permits at the start, 0 to maximumCount
    /// @param maximumCount  upper bound of the count, 1 or more
    /// @throws ArgumentException  maximumCount is below 1, or initialCount is above it
    /// @throws IOException        initialCount is negative, or the system refused
    Semaphore(int initialCount, int maximumCount);
    /// A named semaphore that exists already keeps its own count and maximum.
    /// @throws ArgumentNullException  name is null
    /// @throws ArgumentException      name is longer than 128 bytes
    /// @throws IOException            the name belongs to another kind of object
    Semaphore(int initialCount, int maximumCount, const String& name);
    /// @param createdNew  receives whether the semaphore is new
    Semaphore(int initialCount, int maximumCount, const String& name, bool& createdNew);

    /// @throws ArgumentNullException  name is null or empty
    /// @throws IOException            there is no semaphore of that name
    static Semaphore OpenExisting(const String& name);

    /// Adds one permit.
    /// @returns the count before
    int Release();
    /// Adds count permits, or none at all.
    /// @returns the count before
    /// @throws InvalidOperationException  the semaphore is closed
    /// @throws SemaphoreFullException     the count would pass its maximum
    ///                                    (winerror.h: ERROR_TOO_MANY_POSTS, 298)
    /// @throws IOException                count is below 1
    int Release(int count);

protected:
    bool Signal() override;
    bool Wait(int milliseconds) override;

private:
    Semaphore() = default;
    Platform::WaitObject& Native() const;
};
} // namespace Tesmo::System::Threading
