#pragma once

#include "Descriptor.h"
#include "HostFolders.h"

#include <chrono>
#include <string>
#include <sys/types.h>

/// The real program, running in the calling thread's network and in folders of its own. It is killed with the object if
/// it still runs.
class ClientProcess
{
public:
    /// The folders must outlive the object.
    explicit ClientProcess(const HostFolders& folders);
    ~ClientProcess();
    ClientProcess(const ClientProcess&) = delete;
    ClientProcess& operator=(const ClientProcess&) = delete;

    pid_t Id() const
    {
        return process;
    }

    std::string Log() const
    {
        return folders.Log();
    }

    /// How often a text stands in the log file.
    int Logged(const std::string& text) const;

    /// Waits until the log holds text count times.
    bool WaitForLog(const std::string& text, int count = 1, int milliseconds = 5000) const;

    void Signal(int number) const;

    /// Waits for the end of the program. The exit code, or 128 + the signal that ended it, or -1 while it runs.
    int ExitCode(std::chrono::milliseconds limit);

private:
    const HostFolders& folders;
    pid_t process = -1;
};
