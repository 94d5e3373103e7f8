#pragma once

#include <Core/System/Virtual.h>

#include <cstdint>

namespace Tesmo::System::LogStreams
{
/// The source of the reference time column of a log. It is asked under the lock of a stream, from any thread.
class ILogStreamRefTime : public Virtual
{
public:
    /// The reference time of a row that is written now. The unit is the source's own.
    virtual std::int64_t RefTime() const = 0;
};
} // namespace Tesmo::System::LogStreams
