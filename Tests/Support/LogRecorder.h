#pragma once

#include <Core/LogStream/ILogStream.h>
#include <Discovery/Log/DiscoveryLogger.h>
#include <Tests/Support/CoreTest.h>

#include <condition_variable>

namespace Zelkor::Discovery
{
using Rows = std::vector<std::string>;

/// The process's log stream while it lives: keeps rows as "C Receiver: text", an exception as "E Receiver: text".
class LogRecorder
{
public:
    LogRecorder()
    {
        DiscoveryLogger::Instance().SetStream(stream);
    }
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

    /// The message of the last exception.
    std::string LastFailure()
    {
        const std::lock_guard guard(stream->lock);
        return stream->lastFailure;
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

        Stream()
        {
            SetLevel(Level::Debug);
        }
        void Write(const Channel& channel, Level level, int, const Tesmo::System::String& message) override
        {
            Add(level.ToString().Utf8().substr(0, 1), channel, message);
        }
        void Write(const Channel& channel, const Tesmo::System::String& message,
                   const Tesmo::System::Exception& failure) override
        {
            Add("E", channel, message);
            const std::lock_guard guard(lock);
            lastFailure = failure.Message().Utf8();
        }
        void Add(const std::string& letter, const Channel& channel, const Tesmo::System::String& message)
        {
            const std::lock_guard guard(lock);
            rows.push_back(letter + " " + channel.ToString().Utf8() + ": " + message.Utf8());
            added.notify_all();
        }

        std::mutex lock;
        std::condition_variable added;
        Rows rows;
        std::string lastFailure;
    };

    Tesmo::Sp<Stream> stream{new Stream};
};

/// A test that sees the log, and counts the events that are bound to Count.
class LogTest : public testing::Test
{
public:
    void Count(const Tesmo::System::Object&, const Tesmo::System::EventArgs&)
    {
        raised.Release();
    }

protected:
    /// Waits for so many counts.
    static bool Await(Tesmo::System::Threading::Semaphore& semaphore, int counts)
    {
        return counts == 0 || (semaphore.WaitOne(10000) && Await(semaphore, counts - 1));
    }

    LogRecorder log;
    Tesmo::System::Threading::Semaphore raised{0, 1000};
};
} // namespace Zelkor::Discovery
