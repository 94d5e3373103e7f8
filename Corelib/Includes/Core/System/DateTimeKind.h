#pragma once

namespace Tesmo::System
{
/// What the calendar fields of a DateTime mean.
enum class DateTimeKind
{
    Unspecified = 0,
    Utc = 1,
    Local = 2,
};
} // namespace Tesmo::System
