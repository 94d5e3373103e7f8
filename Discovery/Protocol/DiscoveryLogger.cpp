#include <Discovery/Protocol/DiscoveryLogger.h>

namespace Zelkor::Discovery
{
using Tesmo::null;
using Tesmo::Sp;
using Tesmo::System::Exception;
using Tesmo::System::String;
using Tesmo::System::LogStreams::ILogStream;
using Tesmo::System::LogStreams::LogStreamChannel;
using Tesmo::System::LogStreams::LogStreamLevel;

DiscoveryLogger& DiscoveryLogger::Instance()
{
    static DiscoveryLogger instance;
    return instance;
}

void DiscoveryLogger::SetStream(const Sp<ILogStream>& newStream)
{
    stream = newStream;
}

bool DiscoveryLogger::IsOpen() const
{
    return !(stream == null);
}

void DiscoveryLogger::Write(const LogStreamChannel& channel, const String& message, LogStreamLevel level)
{
    if (IsOpen())
    {
        stream->Write(channel, level, message);
    }
}

void DiscoveryLogger::Write(const LogStreamChannel& channel, const String& message, const Exception& exception)
{
    if (IsOpen())
    {
        stream->Write(channel, message, exception);
    }
}

void DiscoveryLogger::Close()
{
    stream->Close();
    stream.Reset(nullptr);
}
} // namespace Zelkor::Discovery
