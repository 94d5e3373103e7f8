#pragma once

namespace Zelkor::Discovery::Client::Platform
{

/// Ends the wait for an address change, or the next one, as a change does. For a change of which the kernel tells nothing
/// to those who watch addresses: a new gateway, or the same addresses once more. Any thread.
void NoteAddressChange();

} // namespace Zelkor::Discovery::Client::Platform
