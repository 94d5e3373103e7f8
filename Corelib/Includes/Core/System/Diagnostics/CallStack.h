#pragma once

#include <Core/System/Diagnostics/CallStackEntry.h>

#include <mutex>
#include <vector>

namespace Tesmo::System::Diagnostics
{
/// The stack of the calling thread at the moment of construction. Construction only notes addresses; the entries are
/// looked up when they are first asked for. One CallStack may be read by any number of threads.
class CallStack
{
public:
    /// Frames at the top of an entry list that belong to the library: those that asked for the walk.
    static constexpr int HiddenEntries = 4;

    /// Takes the stack from the function on that called whoever makes this object, below HiddenEntries entries of the
    /// library's own.
    /// @param skipFrames  more frames to drop at the top, 0 or more
    /// @param user        an address in the topmost function that is of interest
    [[gnu::noinline]] explicit CallStack(int skipFrames, const void* user = __builtin_return_address(0));

    CallStack(const CallStack&) = delete;
    CallStack& operator=(const CallStack&) = delete;

    /// The frames from the top on, up to the first one whose source file is not known: empty without symbols, and as
    /// long as they cannot be read.
    const std::vector<CallStackEntry>& Entries() const;

private:
    int dropped; ///< entries at the top that are not recorded
    std::vector<const void*> addresses;
    mutable std::mutex mutex; ///< guards the two below
    mutable bool resolved = false;
    mutable std::vector<CallStackEntry> entries;
};
} // namespace Tesmo::System::Diagnostics
