#pragma once

#include <atomic>
#include <cstdint>

namespace Tesmo::Platform
{
/// Counts the calls under way in one socket and knows how it ended, without a lock. The platform's sources share it.
/// A caller that is told to release the descriptor is the last one: no call is under way, and none can begin.
class SocketState
{
public:
    /// Begins a call.
    /// @returns false when the socket is closed; Leave is then not called
    bool Enter() noexcept
    {
        return Add(1);
    }

    /// Ends a call.
    /// @returns true when the descriptor is to be released now, by this caller
    [[nodiscard]] bool Leave() noexcept
    {
        return calls.fetch_sub(1, std::memory_order_acq_rel) == (Closed | 1);
    }

    /// Closes and begins a call in one step, so that the caller can still use the descriptor to wake the others.
    /// @returns false when the socket was closed before
    bool EnterAndClose() noexcept
    {
        return Add(Closed | 1);
    }

    /// True when the socket is closed and the caller's is the last call under way.
    bool IsLast() const noexcept
    {
        return calls.load(std::memory_order_acquire) == (Closed | 1);
    }

    bool IsClosed() const noexcept
    {
        return (calls.load(std::memory_order_acquire) & Closed) != 0;
    }

    /// Notes the directions that are shut down: 1 receiving, 2 sending.
    /// @returns those noted before
    int ShutDown(int directions) noexcept
    {
        return shutDown.fetch_or(directions);
    }

    /// Clears directions again after a shut-down that failed.
    void Reopen(int directions) noexcept
    {
        shutDown.fetch_and(~directions);
    }

    bool IsShutDown(int direction) const noexcept
    {
        return (shutDown.load() & direction) != 0;
    }

private:
    static constexpr std::uint32_t Closed = 0x80000000;

    bool Add(std::uint32_t amount) noexcept
    {
        std::uint32_t seen = calls.load(std::memory_order_relaxed);
        do
        {
            if ((seen & Closed) != 0)
            {
                return false;
            }
        } while (!calls.compare_exchange_weak(seen, seen + amount, std::memory_order_acq_rel));
        return true;
    }

    std::atomic<std::uint32_t> calls = 0; ///< calls under way, and the bit Closed
    std::atomic<int> shutDown = 0;
};

constexpr int ReceivingDirection = 1;
constexpr int SendingDirection = 2;

/// The directions that a Windows `how` of shutdown names: 0 receiving, 1 sending, 2 both; 0 for any other number.
constexpr int DirectionsOf(int how)
{
    return how == 0 ? ReceivingDirection : how == 1 ? SendingDirection : how == 2 ? 3 : 0;
}
} // namespace Tesmo::Platform
