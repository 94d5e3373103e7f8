#pragma once

#include <array>
#include <atomic>
#include <cstddef>

namespace Tesmo::Platform
{
/// The users of one place in the thread table: its owner and its running thread. Whoever leaves last frees it.
struct ThreadSlotUse
{
    std::atomic<int> useCount = 0;

    bool Claim()
    {
        int none = 0;
        return useCount.load(std::memory_order_relaxed) == 0 &&
               useCount.compare_exchange_strong(none, 2, std::memory_order_acquire);
    }

    /// Nothing in the slot may be touched afterwards.
    void Leave(int users = 1)
    {
        useCount.fetch_sub(users, std::memory_order_release);
    }
};

/// Claims the first free place after the main thread's; null when there is none.
template <class Slot, std::size_t Size>
Slot* ClaimThreadSlot(std::array<Slot, Size>& slots)
{
    for (std::size_t index = 1; index < Size; ++index)
    {
        if (slots[index].Claim())
        {
            return &slots[index];
        }
    }
    return nullptr;
}
} // namespace Tesmo::Platform
