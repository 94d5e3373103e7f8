#pragma once

#include "Descriptor.h"
#include "PrivateNetwork.h"

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

/// A host of the calling thread's own: network, host name and mounts. What is written to /etc and /usr/sbin goes with
/// the object, and so do the programs that it started. /run is empty: there is no bus until one is started.
class PrivateHost
{
public:
    PrivateHost();
    ~PrivateHost();

    /// False where the system refuses namespaces: the test is to be skipped.
    bool IsEntered() const;

    /// Starts a program that runs until the end of the scope.
    /// @returns its process
    pid_t Start(const std::vector<std::string>& arguments);

    /// Starts the system bus and waits for it.
    void StartBus();

    /// Puts a bus there that takes connections and never answers.
    /// @returns its listening socket, closed at the end of the scope
    int StartSilentBus();

    /// Starts a program and waits until it has the given name on the bus.
    void StartService(const std::string& name, const std::vector<std::string>& arguments);

private:
    PrivateNetwork network;
    Descriptor oldMounts;
    Descriptor oldRoot;
    Descriptor oldFolder;
    bool left; ///< the old mounts
    bool entered;
    Descriptor silentBus;
    std::vector<pid_t> programs;
};

/// Runs action on a thread that has no capability left, as a confined service of root's has none.
void WithoutCapabilities(const std::function<void()>& action);
