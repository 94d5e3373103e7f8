#pragma once

#include <Core/LogStream/ILogStream.h>
#include <gtest/gtest.h>

#include <string>
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
    explicit LogRecorder(ExceptionRows exceptions = ExceptionRows::Whole);
    LogRecorder(const LogRecorder&) = delete;
    LogRecorder& operator=(const LogRecorder&) = delete;
    ~LogRecorder();

    /// The rows since the last call.
    Rows Take();

    /// Waits until the row stands in the log.
    bool WaitFor(const std::string& row);

private:
    Tesmo::Sp<class RecordingStream> stream;
};

/// A test that sees the log.
class LogTest : public testing::Test
{
protected:
    LogRecorder log{ExceptionRows::Folded};
};
} // namespace Zelkor::Discovery
