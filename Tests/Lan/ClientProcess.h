#pragma once

#include "NetworkNamespace.h"

#include <chrono>
#include <mutex>
#include <string>
#include <sys/types.h>
#include <thread>

namespace Lan
{
/// The real program, running in a network namespace under a host name of its own. It is killed with the object if it
/// still runs.
class ClientProcess
{
public:
    ClientProcess(const NetworkNamespace& network, const std::string& hostName);
    ~ClientProcess();

    pid_t Id() const
    {
        return process;
    }

    /// The end of what the program has logged so far, 4000 bytes at most.
    std::string Log() const;

    /// How often a text stands in the log.
    int Logged(const std::string& text) const;

    /// Waits until the log holds text count times.
    bool WaitForLog(const std::string& text, int count = 1, int milliseconds = 5000) const;

    void Signal(int number) const;

    /// Waits for the end of the program. The exit code, or -1 when it still runs or was ended by a signal.
    int ExitCode(std::chrono::milliseconds limit);

private:
    void ReadLog();

    pid_t process = -1;
    Descriptor output;
    mutable std::mutex lock;
    std::string log;
    std::thread reader;
};
} // namespace Lan
