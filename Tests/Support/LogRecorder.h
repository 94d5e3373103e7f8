#pragma once

#include <Core/LogStream/ILogStream.h>
#include <Discovery/Protocol/DiscoveryLogger.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace Zelkor::Discovery
{
using Rows = std::vector<std::string>;

/// How the two rows of an exception are kept: as they are, or as one that begins with "E" and holds the text alone.
enum class ExceptionRows
{
    Whole,
    Folded
};

/// Stands in for the process's log stream while it lives, and keeps what is written as "C Receiver: text".
class LogRecorder
{
public:
    explicit LogRecorder(ExceptionRows exceptions = ExceptionRows::Whole) : stream(new Stream(exceptions))
    {
        DiscoveryLogger::Instance().SetStream(stream);
    }
    LogRecorder(const LogRecorder&) = delete;
    LogRecorder& operator=(const LogRecorder&) = delete;
    ~LogRecorder()
    {
        DiscoveryLogger::Instance().SetStream({});
    }

    /// The rows since the last call.
    Rows Take()
    {
        const std::lock_guard guard(stream->lock);
        return std::exchange(stream->rows, {});
    }

    /// Waits until the row stands in the log.
    bool WaitFor(const std::string& row)
    {
        std::unique_lock guard(stream->lock);
        return stream->added.wait_for(
            guard, std::chrono::seconds(10),
            [&] { return std::find(stream->rows.begin(), stream->rows.end(), row) != stream->rows.end(); });
    }

private:
    class Stream : public Tesmo::System::LogStreams::ILogStream
    {
    public:
        using Channel = Tesmo::System::LogStreams::LogStreamChannel;
        using Level = Tesmo::System::LogStreams::LogStreamLevel;
        using ILogStream::Write;

        explicit Stream(ExceptionRows exceptions) : folds(exceptions == ExceptionRows::Folded)
        {
            SetLevel(Level::Debug);
        }
        void Write(const Channel& channel, Level level, int, const Tesmo::System::String& message) override
        {
            Add(level.ToString().Utf8().substr(0, 1), channel, message);
        }
        void Write(const Channel& channel, const Tesmo::System::String& message,
                   const Tesmo::System::Exception& exception) override
        {
            folds ? Add("E", channel, message) : ILogStream::Write(channel, message, exception);
        }
        void Add(const std::string& letter, const Channel& channel, const Tesmo::System::String& message)
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

    Tesmo::Sp<Stream> stream;
};

/// A test that sees the log.
class LogTest : public testing::Test
{
protected:
    LogRecorder log{ExceptionRows::Folded};
};
} // namespace Zelkor::Discovery
