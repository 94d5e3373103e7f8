#pragma once

#include "Descriptor.h"

/// A network and host-name namespace for the calling thread and the threads that it starts from then on; the old ones
/// come back at the end of the scope. Loopback is up.
class PrivateNetwork
{
public:
    PrivateNetwork();
    ~PrivateNetwork();

    /// False where the system refuses namespaces: the test is to be skipped.
    bool IsEntered() const
    {
        return entered;
    }

private:
    Descriptor oldNetwork;
    Descriptor oldHostName;
    bool entered;
};
