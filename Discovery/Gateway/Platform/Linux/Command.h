#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace Zelkor::Discovery::Client::Platform
{

using Deadline = std::chrono::steady_clock::time_point;

constexpr std::size_t MaximumOutput = 65536; ///< bytes

/// How a program ended, and what it wrote.
struct CommandResult
{
    int code = 0; ///< its exit code; 128 + the signal that ended it; -1 if it could not be started or took too long
    std::string output; ///< standard output and standard error together, the first MaximumOutput bytes
};

/// Runs a program with an argument vector, never through a shell, in the locale C, with an empty standard input, and
/// waits for its end. At the deadline the program is killed, with its process group; after the deadline none is
/// started.
/// @param arguments  the program, by name or path, and its arguments
CommandResult RunCommand(const std::vector<std::string>& arguments, Deadline deadline);

} // namespace Zelkor::Discovery::Client::Platform
