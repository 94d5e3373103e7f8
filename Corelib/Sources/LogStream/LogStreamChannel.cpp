#include <Core/LogStream/LogStreamChannel.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/ThrowSite.h>

namespace Tesmo::System::LogStreams
{
namespace
{
const String& Checked(const String& name)
{
    NotNull(name);
    if (name.IsEmpty() || name.Length() > LogStreamChannel::MaxNameLength)
    {
        throw ArgumentException(ThrowSite);
    }
    return name;
}
} // namespace

LogStreamChannel::LogStreamChannel(const String& channelName) : name(Checked(channelName)) {}

String LogStreamChannel::ToString() const
{
    return name;
}
} // namespace Tesmo::System::LogStreams
