#include "Clock.h"

#include <atomic>

#include <time.h>

namespace Tesmo::Platform
{
namespace
{
constexpr std::int64_t ZoneCheckInterval = 60; // seconds; tzset looks at a file, so it is not called each time

/// localtime_r reads the zone once; tzset makes it read again.
void RefreshZone()
{
    static std::atomic<std::int64_t> nextCheck{0};
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    std::int64_t due = nextCheck.load(std::memory_order_relaxed);
    const std::int64_t seconds = now.tv_sec + 1; // above 0, so that the first call runs tzset
    if (seconds >= due && nextCheck.compare_exchange_strong(due, seconds + ZoneCheckInterval))
    {
        tzset();
    }
}
} // namespace

ClockReading ReadClock()
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return {now.tv_sec, static_cast<std::int32_t>(now.tv_nsec / 100)};
}

std::tm LocalFields(std::int64_t utcSeconds)
{
    RefreshZone();
    const time_t seconds = utcSeconds;
    std::tm fields{};
    localtime_r(&seconds, &fields);
    return fields;
}
} // namespace Tesmo::Platform
