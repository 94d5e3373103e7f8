#include "LogRecorder.h"

#include <Discovery/Protocol/DiscoveryLogger.h>

#include <utility>

namespace Zelkor::Discovery
{
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

namespace
{
class RecordingStream : public ILogStream
{
public:
    using ILogStream::Write;

    explicit RecordingStream(std::vector<std::string>& rows) : target(rows) {}

    void Write(const LogStreamChannel& channel, LogStreamLevel level, int, const String& message) override
    {
        target.push_back(channel.ToString().Utf8() + "|" + level.ToString().Utf8() + "|" + message.Utf8());
    }

private:
    std::vector<std::string>& target;
};
} // namespace

LogRecorder::LogRecorder()
{
    DiscoveryLogger::Instance().SetStream(Tesmo::Sp<ILogStream>(new RecordingStream(rows)));
}

LogRecorder::~LogRecorder()
{
    DiscoveryLogger::Instance().SetStream({});
}

std::vector<std::string> LogRecorder::Take()
{
    return std::exchange(rows, {});
}
} // namespace Zelkor::Discovery
