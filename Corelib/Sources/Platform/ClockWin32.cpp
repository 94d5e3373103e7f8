#include "Clock.h"

#include "Calendar.h"

#include <algorithm>

#include <windows.h>

namespace Tesmo::Platform
{
namespace
{
constexpr std::int64_t TicksPerSecond = 10000000;
constexpr std::int64_t EpochSeconds = 11644473600; // from 1601, where FILETIME begins, to 1970

FILETIME ToFileTime(std::int64_t ticks)
{
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

std::int64_t ToTicks(const FILETIME& time)
{
    return static_cast<std::int64_t>((static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime);
}

/// Seconds that local time is ahead of UTC at a moment.
std::int64_t OffsetAt(std::int64_t utcSeconds)
{
    constexpr std::int64_t day = 86400; // seconds; from this moment on no zone takes the local time out of FILETIME
    const std::int64_t ticks = std::max(utcSeconds + EpochSeconds, day) * TicksPerSecond;
    const FILETIME utc = ToFileTime(ticks);
    FILETIME local{};
    return FileTimeToLocalFileTime(&utc, &local) == 0 ? 0 : (ToTicks(local) - ticks) / TicksPerSecond;
}

bool IsDaylightTime()
{
    TIME_ZONE_INFORMATION zone{};
    return GetTimeZoneInformation(&zone) == TIME_ZONE_ID_DAYLIGHT;
}
} // namespace

ClockReading ReadClock()
{
    SYSTEMTIME system{};
    FILETIME file{};
    GetSystemTime(&system);
    SystemTimeToFileTime(&system, &file);
    const std::int64_t ticks = ToTicks(file);
    return {ticks / TicksPerSecond - EpochSeconds, static_cast<std::int32_t>(ticks % TicksPerSecond)};
}

std::tm LocalFields(std::int64_t utcSeconds)
{
    std::tm fields = CalendarFields(utcSeconds + OffsetAt(utcSeconds));
    fields.tm_isdst = IsDaylightTime() ? 1 : 0;
    return fields;
}
} // namespace Tesmo::Platform
