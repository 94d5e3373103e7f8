#include "DiscoveryChannel.h"

#include <Discovery/Log/DiscoveryLogger.h>

namespace Zelkor::Discovery
{
using Tesmo::System::Exception, Tesmo::System::String, Tesmo::System::LogStreams::LogStreamLevel;

void DiscoveryChannel::Critical(const String& message) const
{
    DiscoveryLogger::Instance().Write(*this, message, LogStreamLevel::Critical);
}

void DiscoveryChannel::Standard(const String& message) const
{
    DiscoveryLogger::Instance().Write(*this, message, LogStreamLevel::Standard);
}

void DiscoveryChannel::Debug(const String& message) const
{
    DiscoveryLogger::Instance().Write(*this, message, LogStreamLevel::Debug);
}

void DiscoveryChannel::Critical(const String& message, const Exception& failure) const
{
    DiscoveryLogger::Instance().Write(*this, message, failure);
}
} // namespace Zelkor::Discovery
