#include "LiveMemory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace
{
std::atomic<long> liveBlocks = 0;

void* Take(std::size_t size) noexcept
{
    void* const block = std::malloc(size == 0 ? 1 : size);
    liveBlocks += block != nullptr ? 1 : 0;
    return block;
}

void GiveBack(void* block) noexcept
{
    liveBlocks -= block != nullptr ? 1 : 0;
    std::free(block);
}
} // namespace

namespace Zelkor::Discovery
{
long LiveBlocks()
{
    return liveBlocks;
}
} // namespace Zelkor::Discovery

void* operator new(std::size_t size)
{
    void* const block = Take(size);
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    return block;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    return Take(size);
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return Take(size);
}

void operator delete(void* block) noexcept
{
    GiveBack(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    GiveBack(block);
}

void operator delete(void* block, const std::nothrow_t&) noexcept
{
    GiveBack(block);
}

void operator delete[](void* block) noexcept
{
    GiveBack(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    GiveBack(block);
}

void operator delete[](void* block, const std::nothrow_t&) noexcept
{
    GiveBack(block);
}
