#pragma once

#include "Descriptor.h"

#include <functional>
#include <string>
#include <vector>

/// A network of its own with loopback up: one host of a test LAN. It ends with the object.
class NetworkNamespace
{
public:
    NetworkNamespace();

    /// The calling thread's own, which is as it is.
    static NetworkNamespace OfThisThread();

    /// Runs action on a thread that lives in this namespace; sockets that it opens stay there.
    void Within(const std::function<void()>& action) const;

    /// Runs a program in this namespace and waits for it.
    /// @throws std::runtime_error  it did not end with exit code 0
    void Run(const std::vector<std::string>& arguments) const;

    /// Runs "ip" with the words of line, which are parted by single blanks.
    void Ip(const std::string& line) const;

    /// Moves this (forked) process into the namespace.
    void Enter() const;

    /// A path by which other programs find this namespace while the object lives.
    std::string Path() const;

private:
    explicit NetworkNamespace(Descriptor&& opened);

    Descriptor descriptor;
};

/// Lays a cable between two namespaces: an adapter with the given name at each end, up, the near one with a fixed
/// hardware address.
void Connect(const NetworkNamespace& near, const std::string& nearName, const std::string& nearMac,
             const NetworkNamespace& far, const std::string& farName);
