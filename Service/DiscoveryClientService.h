#pragma once

#include <Core/System/Object.h>

#include <cstdint>

namespace Zelkor::Discovery::Client
{
/// The service around the client: sets up the log, builds gateway and client, starts the client, waits for the stop
/// request and stops the client. All of it is static, since the control manager's calls carry no context.
class DiscoveryClientService : public Tesmo::System::Object
{
public:
    /// Runs the service on the calling thread, which must be the only one of the process, until it has stopped.
    /// @returns 0 after a clean stop, else the error code of the connection to the control manager; an exception out
    ///          of the client's start or stop isn't caught and ends the process
    static int Run();

    /// The control manager's orders. Only stop (1) and shutdown (5) count, and only while the service runs; others are
    /// dropped without a report.
    static void HandleControl(std::uint32_t control);

private:
    static void ServiceEntryPoint();
};
} // namespace Zelkor::Discovery::Client
