#include "StandardErrorLogStream.h"

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ThrowSite.h>

#include <cstdio>

namespace Zelkor::Discovery::Client
{
using Tesmo::IsNull;
using Tesmo::System::ArgumentNullException;
using Tesmo::System::String;
using Tesmo::System::LogStreams::LogStreamChannel;
using Tesmo::System::LogStreams::LogStreamLevel;

void StandardErrorLogStream::Write(const LogStreamChannel& channel, LogStreamLevel level, int, const String& message)
{
    if (IsNull(channel) || IsNull(message))
    {
        throw ArgumentNullException(ThrowSite);
    }
    if (IsEnabled(level))
    {
        // One call for the whole row: rows of several threads don't mix.
        std::fprintf(stderr, "%-40s %s: %s\n", channel.ToString().Utf8().c_str(), level.ToString().Utf8().c_str(),
                     message.Utf8().c_str());
    }
}
} // namespace Zelkor::Discovery::Client
