#include "Platform/StackWalker.h"

#include <unwind.h> // the compiler's own, the same on both platforms; it needs no frame pointers

#include <algorithm>
#include <atomic>

namespace Tesmo::Platform
{
namespace
{
std::atomic<bool> linesMissing = false;

struct Walk
{
    const void* user;
    const void** addresses;
    int capacity;
    int count = 0;             ///< 0 until the user's function has come by
    const void* own = nullptr; ///< the topmost address
};

_Unwind_Reason_Code VisitFrame(_Unwind_Context* context, void* argument)
{
    Walk& walk = *static_cast<Walk*>(argument);
    const auto* const address = reinterpret_cast<const void*>(_Unwind_GetIP(context));
    if (walk.own == nullptr)
    {
        walk.own = address;
    }
    if (walk.count == 0)
    {
        const bool isAboveUser = address != walk.user;
        if (isAboveUser)
        {
            return _URC_NO_REASON;
        }
        std::fill_n(walk.addresses, OwnFrames, walk.own);
        walk.count = OwnFrames;
    }
    if (walk.count == walk.capacity)
    {
        return _URC_END_OF_STACK;
    }
    walk.addresses[walk.count] = address;
    walk.count++;
    return _URC_NO_REASON;
}
} // namespace

int CaptureStack(const void* user, const void** addresses, int capacity)
{
    if (linesMissing.load(std::memory_order_relaxed))
    {
        return 0;
    }
    Walk walk{user, addresses, capacity};
    _Unwind_Backtrace(VisitFrame, &walk);
    return walk.count;
}

std::vector<System::Diagnostics::CallStackEntry> ResolveStack(const void* const* addresses, int count)
{
    if (count == 0)
    {
        return {};
    }
    auto entries = LookUpAddresses(addresses, count);
    if (entries.empty()) // the first address is the library's own
    {
        linesMissing.store(true, std::memory_order_relaxed);
    }
    return entries;
}
} // namespace Tesmo::Platform
