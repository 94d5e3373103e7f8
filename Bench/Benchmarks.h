#pragma once

namespace Bench
{
/// Each registers the benchmarks of one source file.
void AddCoreComparisons();     ///< text of a datagram, formatting, exceptions, locks
void AddLogComparisons();      ///< rows in a log file, its splitting
void AddProtocolComparisons(); ///< messages read and written
void AddReceiveComparisons();  ///< from a peer's sendto to the task
void AddHostComparisons();     ///< snapshots of hosts with 1 to 64 adapters and up to 8 plug-ins
void AddIdleClient();          ///< a minute of the program with nothing to do
} // namespace Bench
