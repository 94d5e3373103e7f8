#pragma once

#include <Core/System/Diagnostics/CallStackEntry.h>

#include <vector>

namespace Tesmo::Platform
{
/// Frames of the library itself at the top of every walk: two of the walk, four of those who asked for it. Their real
/// number depends on the optimiser, so a walk counts from the user's function and writes its own address above it.
constexpr int OwnFrames = 6;

/// Notes the stack of the calling thread. Cheap: no symbols, no allocation.
/// @param user       a return address into the topmost function of interest
/// @param addresses  receives OwnFrames addresses of the library, then the user's function and its callers
/// @param capacity   above OwnFrames
/// @returns the number of addresses; 0 where user is not on the stack, and from then on when ResolveStack has found
///          that the library itself has no lines
[[gnu::noinline]] int CaptureStack(const void* user, const void** addresses, int capacity);

/// Looks up the addresses of one walk, in order, and ends before the first whose source file is not known. An inlined
/// call gives an entry of its own, innermost first. Any thread may call it.
std::vector<System::Diagnostics::CallStackEntry> ResolveStack(const void* const* addresses, int count);

/// The platform's part of ResolveStack.
std::vector<System::Diagnostics::CallStackEntry> LookUpAddresses(const void* const* addresses, int count);
} // namespace Tesmo::Platform
