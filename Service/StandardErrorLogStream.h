#pragma once

#include <Core/LogStream/ILogStream.h>

namespace Zelkor::Discovery::Client
{
/// Writes the channel, the level's letter and the message of each row to standard error. Any thread.
class StandardErrorLogStream : public Tesmo::System::LogStreams::ILogStream
{
public:
    using ILogStream::Write;

    /// @throws ArgumentNullException  channel or message is null
    void Write(const Tesmo::System::LogStreams::LogStreamChannel& channel,
               Tesmo::System::LogStreams::LogStreamLevel level, int errorCode,
               const Tesmo::System::String& message) override;
};
} // namespace Zelkor::Discovery::Client
