#include <Core/LogStream/LogStreamRefTime.h>

#include <Core/System/DateTime.h>

namespace Tesmo::System::LogStreams
{
const LogStreamRefTime& LogStreamRefTime::Default()
{
    static const LogStreamRefTime instance;
    return instance;
}

std::int64_t LogStreamRefTime::RefTime() const
{
    return DateTime::Now().Ticks();
}
} // namespace Tesmo::System::LogStreams
