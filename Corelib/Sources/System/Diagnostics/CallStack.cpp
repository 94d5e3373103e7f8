#include <Core/System/Diagnostics/CallStack.h>

#include <Platform/StackWalker.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace Tesmo::System::Diagnostics
{
namespace
{
constexpr int WalkFrames = 2; ///< the frames of the walk and of its caller
static_assert(WalkFrames + CallStack::HiddenEntries == Platform::OwnFrames);
} // namespace

CallStack::CallStack(int skipFrames, const void* user)
    : dropped(skipFrames + WalkFrames),
      addresses(Platform::CaptureStack(user))
{
}

const std::vector<CallStackEntry>& CallStack::Entries() const
{
    const std::lock_guard lock(mutex);
    if (resolved)
    {
        return entries;
    }
    if (auto found = Platform::ResolveStack(addresses))
    {
        entries = std::move(*found);
        entries.erase(entries.begin(), entries.begin() + std::min<std::ptrdiff_t>(dropped, std::ssize(entries)));
        resolved = true;
    }
    return entries;
}
} // namespace Tesmo::System::Diagnostics
