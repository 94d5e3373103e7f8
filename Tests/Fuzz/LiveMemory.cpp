#include "LiveMemory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

namespace
{
std::atomic<long> liveBlocks = 0;
} // namespace

namespace Zelkor::Discovery
{
long LiveBlocks()
{
    return liveBlocks;
}
} // namespace Zelkor::Discovery

// The library's other forms, those of arrays among them, call these. A sanitizer's forms for arrays don't: they are not
// counted there.

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    void* const block = std::malloc(size == 0 ? 1 : size);
    liveBlocks += block != nullptr ? 1 : 0;
    return block;
}

void* operator new(std::size_t size)
{
    void* const block = operator new(size, std::nothrow);
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    return block;
}

void operator delete(void* block) noexcept
{
    liveBlocks -= block != nullptr ? 1 : 0;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}
