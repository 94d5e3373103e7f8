#pragma once

#include "Descriptor.h"

#include <functional>
#include <string>

/// A network of its own with loopback up: one host of a test LAN. It ends with the object.
class NetworkNamespace
{
public:
    /// @throws std::runtime_error  the system refuses namespaces
    NetworkNamespace();

    /// Runs action on a thread that lives in this namespace; sockets that it opens stay there.
    void Within(const std::function<void()>& action) const;

    /// Runs "ip" with these arguments in this namespace; a failing one fails the test.
    void Ip(const std::string& arguments) const;

    /// A path by which other programs find this namespace while the object lives.
    std::string Path() const;

private:
    Descriptor descriptor;
};
