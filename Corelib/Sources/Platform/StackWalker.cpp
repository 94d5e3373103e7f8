#include "StackWalker.h"

#include <unwind.h> // the compiler's own, the same on both platforms; it needs no frame pointers (decision 76)

#include <atomic>
#include <cstddef>
#include <new>
#include <utility>

namespace Tesmo::Platform
{
namespace
{
std::atomic<bool> linesMissing = false;

constexpr std::size_t UsualDepth = 64; ///< frames

struct Walk
{
    const void* user;
    std::vector<const void*> addresses; ///< empty until the walk reaches the user's function
    const void* own = nullptr;          ///< the topmost address
    bool isOutOfMemory = false;
};

_Unwind_Reason_Code VisitFrame(_Unwind_Context* context, void* argument)
{
    Walk& walk = *static_cast<Walk*>(argument);
    const auto* const address = reinterpret_cast<const void*>(_Unwind_GetIP(context));
    if (walk.own == nullptr)
    {
        walk.own = address;
    }
    const bool isAboveUser = walk.addresses.empty() && address != walk.user;
    if (isAboveUser)
    {
        return _URC_NO_REASON;
    }
    try // nothing may be thrown through the unwinder
    {
        if (walk.addresses.empty())
        {
            walk.addresses.reserve(UsualDepth);
            walk.addresses.assign(OwnFrames, walk.own);
        }
        walk.addresses.push_back(address);
        return _URC_NO_REASON;
    }
    catch (const std::bad_alloc&)
    {
        walk.isOutOfMemory = true;
        return _URC_END_OF_STACK;
    }
}
} // namespace

std::vector<const void*> CaptureStack(const void* user)
{
    if (linesMissing.load(std::memory_order_relaxed))
    {
        return {};
    }
    Walk walk{user, {}};
    _Unwind_Backtrace(VisitFrame, &walk);
    if (walk.isOutOfMemory)
    {
        throw std::bad_alloc();
    }
    return std::move(walk.addresses);
}

std::optional<StackEntries> ResolveStack(const std::vector<const void*>& addresses)
{
    if (addresses.empty())
    {
        return StackEntries();
    }
    auto entries = LookUpAddresses(addresses);
    if (entries && entries->empty()) // the first address is the library's own
    {
        linesMissing.store(true, std::memory_order_relaxed);
    }
    return entries;
}
} // namespace Tesmo::Platform
