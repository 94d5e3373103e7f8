#pragma once

namespace Zelkor::Discovery::Client::Platform
{

/// Blocks until an IPv4 address of the host changes. One wait at a time in the process.
/// Linux: the first wait begins a watch over the addresses, and what changes while nobody waits counts at the next
/// wait. A burst of changes counts as one: the wait ends 100 ms after its last change, 1 s at most after its first. A
/// wait that fails answers after a pause of 1 s, which a cancel cuts short, so that a caller's loop doesn't spin.
/// @returns true after a change; on Win32 also after a cancel.
///          false if the wait failed; on Linux also after a cancel, which leaves changes to the next wait
bool WaitForAddressChange();

/// Ends the wait of another thread; a cancel that comes before the wait began ends the next one.
/// @returns what the platform says: on Linux 0 or errno, on Win32 1 if a pending notification was cancelled, else 0
int CancelAddressChangeWait();

/// Ends the wait, or the next one, as a change of an address does: for a change with isUnseen in its SettingsOutcome.
/// Any thread. Win32: does nothing, because there is no such change.
void NoteAddressChange();

/// Ends the watch that the first wait began and forgets cancels and changes that no wait has met; the next wait is a
/// first one. Not while a wait is under way.
void EndAddressChangeWatch();

} // namespace Zelkor::Discovery::Client::Platform
