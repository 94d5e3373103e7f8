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
/// Keeps the log's rows as "C Receiver: text"; a row with an exception counts once and begins with "E".
class LogCapture : public Tesmo::System::LogStreams::ILogStream
{
public:
    using ILogStream::Write;

    LogCapture()
    {
        SetLevel(Tesmo::System::LogStreams::LogStreamLevel::Debug);
    }

    void Write(const Tesmo::System::LogStreams::LogStreamChannel& channel,
               Tesmo::System::LogStreams::LogStreamLevel level, int, const Tesmo::System::String& message) override
    {
        Add(level.ToString().Utf8().substr(0, 1), channel, message);
    }
    void Write(const Tesmo::System::LogStreams::LogStreamChannel& channel, const Tesmo::System::String& message,
               const Tesmo::System::Exception&) override
    {
        Add("E", channel, message);
    }

    /// The rows so far; the log is empty afterwards.
    std::vector<std::string> Take()
    {
        const std::lock_guard guard(lock);
        return std::move(rows);
    }

    /// Waits until the row stands in the log.
    bool WaitFor(const std::string& row)
    {
        std::unique_lock guard(lock);
        return added.wait_for(guard, std::chrono::seconds(10),
                              [&] { return std::find(rows.begin(), rows.end(), row) != rows.end(); });
    }

private:
    void Add(const std::string& letter, const Tesmo::System::LogStreams::LogStreamChannel& channel,
             const Tesmo::System::String& message)
    {
        const std::lock_guard guard(lock);
        rows.push_back(letter + " " + channel.ToString().Utf8() + ": " + message.Utf8());
        added.notify_all();
    }

    std::mutex lock;
    std::condition_variable added;
    std::vector<std::string> rows;
};

using Rows = std::vector<std::string>;

/// A test that sees the log.
class LogTest : public testing::Test
{
protected:
    LogTest() : log(new LogCapture)
    {
        DiscoveryLogger::Instance().SetStream(log);
    }
    ~LogTest() override
    {
        DiscoveryLogger::Instance().Close();
    }

    Tesmo::Sp<LogCapture> log;
};
} // namespace Zelkor::Discovery
