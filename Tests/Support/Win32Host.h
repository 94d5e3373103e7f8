#pragma once

#include "HostFolders.h"
#include "PrivateHost.h"

/// A Win32 host in the network of a private one, where the program under test is the Win32 client. Its runs are those of
/// one service, which runs on when its ClientProcess has been killed.
class Win32Host : public HostFolders
{
public:
    /// Whether the client is built for Win32, and Scripts/dependencies could make a root with Wine.
    static bool IsBuilt();

    /// Starts the host, which ends with the private one.
    explicit Win32Host(PrivateHost& host);

    void BecomeProgram() const noexcept override;

private:
    pid_t process;
};
