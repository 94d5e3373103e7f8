#pragma once

#include <Core/System/Object.h>
#include <Core/System/String.h>

namespace Tesmo::System::LogStreams
{
/// A named source of log rows. Each class that logs holds its own, built once with a fixed name.
class LogStreamChannel : public Object
{
public:
    static constexpr int MaxNameLength = 40; ///< characters; the width of the channel column of a row

    /// @param channelName  1 to MaxNameLength characters
    /// @throws ArgumentNullException  channelName is null
    /// @throws ArgumentException      channelName is empty or too long
    explicit LogStreamChannel(const String& channelName);

    /// The name.
    String ToString() const override;

private:
    String name;
};
} // namespace Tesmo::System::LogStreams
