#pragma once

namespace Bench
{
/// Each registers the comparisons of one source file.
void AddCoreComparisons();     ///< text of a datagram, formatting, exceptions, locks
void AddProtocolComparisons(); ///< messages read and written
void AddReceiveComparisons();  ///< from a peer's sendto to the task
void AddHostComparisons();     ///< snapshots of hosts with 1, 8 and 64 adapters
} // namespace Bench
