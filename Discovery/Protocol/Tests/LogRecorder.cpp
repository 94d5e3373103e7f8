#include "LogRecorder.h"

#include <Discovery/Protocol/DiscoveryLogger.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace Zelkor::Discovery
{
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

class RecordingStream : public ILogStream
{
public:
    using ILogStream::Write;

    explicit RecordingStream(ExceptionRows exceptions) : folds(exceptions == ExceptionRows::Folded)
    {
        SetLevel(LogStreamLevel::Debug);
    }
    void Write(const LogStreamChannel& channel, LogStreamLevel level, int, const String& message) override
    {
        Add(level.ToString().Utf8().substr(0, 1), channel, message);
    }
    void Write(const LogStreamChannel& channel, const String& message, const Exception& exception) override
    {
        folds ? Add("E", channel, message) : ILogStream::Write(channel, message, exception);
    }
    void Add(const std::string& letter, const LogStreamChannel& channel, const String& message)
    {
        const std::lock_guard guard(lock);
        rows.push_back(letter + " " + channel.ToString().Utf8() + ": " + message.Utf8());
        added.notify_all();
    }

    const bool folds;
    std::mutex lock;
    std::condition_variable added;
    Rows rows;
};

LogRecorder::LogRecorder(ExceptionRows exceptions) : stream(new RecordingStream(exceptions))
{
    DiscoveryLogger::Instance().SetStream(stream);
}

LogRecorder::~LogRecorder()
{
    DiscoveryLogger::Instance().SetStream({});
}

Rows LogRecorder::Take()
{
    const std::lock_guard guard(stream->lock);
    return std::exchange(stream->rows, {});
}

bool LogRecorder::WaitFor(const std::string& row)
{
    std::unique_lock guard(stream->lock);
    return stream->added.wait_for(
        guard, std::chrono::seconds(10),
        [&] { return std::find(stream->rows.begin(), stream->rows.end(), row) != stream->rows.end(); });
}
} // namespace Zelkor::Discovery
