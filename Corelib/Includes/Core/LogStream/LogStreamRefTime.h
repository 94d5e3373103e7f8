#pragma once

#include <Core/LogStream/ILogStreamRefTime.h>

namespace Tesmo::System::LogStreams
{
/// The reference time of every stream that was given no other: the ticks of DateTime::Now, units of 100 nanoseconds.
/// They count UTC time, so the column does not follow the time zone as the date column of a row does.
class LogStreamRefTime : public ILogStreamRefTime
{
public:
    /// The object that all streams share.
    static const LogStreamRefTime& Default();

    std::int64_t RefTime() const override;
};
} // namespace Tesmo::System::LogStreams
