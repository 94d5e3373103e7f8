#pragma once

#include <Core/LogStream/ILogStream.h>

#include <string>
#include <vector>

namespace Zelkor::Discovery
{
/// Stands in for the process's log stream while it lives, and keeps what is written as "channel|level|text".
class LogRecorder
{
public:
    LogRecorder();
    LogRecorder(const LogRecorder&) = delete;
    LogRecorder& operator=(const LogRecorder&) = delete;
    ~LogRecorder();

    /// The rows since the last call.
    std::vector<std::string> Take();

private:
    std::vector<std::string> rows;
};
} // namespace Zelkor::Discovery
