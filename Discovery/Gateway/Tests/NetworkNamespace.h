#pragma once

#include <string>

/// A network and host-name namespace for the calling thread and the threads that it starts from then on; the old ones
/// come back at the end of the scope. Loopback is up.
class NetworkNamespace
{
public:
    NetworkNamespace();
    ~NetworkNamespace();
    NetworkNamespace(const NetworkNamespace&) = delete;
    NetworkNamespace& operator=(const NetworkNamespace&) = delete;

    /// False where the system refuses namespaces: the test is to be skipped.
    bool IsEntered() const;

private:
    int oldNetwork;
    int oldHostName;
    bool entered;
};

/// Runs shell commands in the calling thread's namespaces; a failing one fails the test.
void Shell(const std::string& commands);
