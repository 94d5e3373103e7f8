#pragma once

#include <Core/System/Diagnostics/CallStackEntry.h>

#include <optional>
#include <vector>

namespace Tesmo::Platform
{
/// Frames of the library itself at the top of every walk: two of the walk, four of its callers in the library. Their
/// real number depends on the optimiser, so a walk starts at the user's function and puts this many addresses of the
/// library above it.
constexpr int OwnFrames = 6;

/// Records the stack of the calling thread, however deep it is. Cheap: no symbols.
/// @param user  a return address into the topmost function of interest
/// @returns OwnFrames addresses of the library, then the user's function and its callers; nothing if user is not on the
///          stack, and always nothing once ResolveStack has found that the library itself has no lines
/// @throws std::bad_alloc
[[gnu::noinline]] std::vector<const void*> CaptureStack(const void* user);

using StackEntries = std::vector<System::Diagnostics::CallStackEntry>;

/// Looks up the addresses of one walk, in order, and ends before the first whose source file is not known. An inlined
/// call gives an entry of its own, innermost first. Any thread may call it.
/// @returns nothing where the symbols cannot be read now, but may be later
std::optional<StackEntries> ResolveStack(const std::vector<const void*>& addresses);

/// The platform's part of ResolveStack.
std::optional<StackEntries> LookUpAddresses(const std::vector<const void*>& addresses);
} // namespace Tesmo::Platform
