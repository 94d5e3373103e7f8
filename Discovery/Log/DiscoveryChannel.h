#pragma once

#include <Core/LogStream/LogStreamChannel.h>
#include <Core/System/Exception.h>
#include <Core/System/String.h>

namespace Zelkor::Discovery
{
/// A named source of rows in the program's own log. A row costs nothing while no log is open.
class DiscoveryChannel : public Tesmo::System::LogStreams::LogStreamChannel
{
public:
    using LogStreamChannel::LogStreamChannel;

    /// One row each.
    /// @throws Exception  the log can't be written
    void Critical(const Tesmo::System::String& message) const;
    void Standard(const Tesmo::System::String& message) const;
    void Debug(const Tesmo::System::String& message) const;

    /// Two rows at Critical about an exception that was caught.
    /// @throws Exception  the log can't be written
    void Critical(const Tesmo::System::String& message, const Tesmo::System::Exception& failure) const;
};
} // namespace Zelkor::Discovery
