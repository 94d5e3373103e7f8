#pragma once

#include <cstdint>
#include <ctime>

namespace Tesmo::Platform
{
/// The calendar fields of a moment, without a change of the zone; tm_isdst is 0.
/// @param seconds  since the start of 1970
std::tm CalendarFields(std::int64_t seconds);

/// The inverse: seconds since the start of 1970. The fields must be a date; tm_wday, tm_yday and tm_isdst are ignored.
std::int64_t CalendarSeconds(const std::tm& fields);
} // namespace Tesmo::Platform
