#pragma once

namespace Tesmo::System
{
/// Days of the week, numbered as in the standard library's broken-down time.
enum class DayOfWeek
{
    Sunday = 0,
    Monday = 1,
    Tuesday = 2,
    Wednesday = 3,
    Thursday = 4,
    Friday = 5,
    Saturday = 6,
};
} // namespace Tesmo::System
