#pragma once

#include <cstdint>
#include <ctime>

namespace Tesmo::Platform
{
/// The present moment of the system clock.
struct ClockReading
{
    std::int64_t seconds; ///< since the start of 1970, UTC
    std::int32_t ticks;   ///< of 100 nanoseconds within the second, 0 to 9999999
};

/// Any thread. It allocates nothing.
ClockReading ReadClock();

/// The local calendar fields of a moment; a change of the host's zone shows within a minute. Any thread.
/// @param utcSeconds  since the start of 1970; on Win32 moments before 1601 take the zone's offset of 1601
std::tm LocalFields(std::int64_t utcSeconds);
} // namespace Tesmo::Platform
