#pragma once

#include "Station.h"

#include <Tests/Support/ClientProcess.h>
#include <Tests/Support/IsolatedTest.h>
#include <Tests/Support/Win32Host.h>

#include <memory>
#include <vector>

namespace Lan
{
/// Whether the client is that of Win32, on a host with Wine. Chosen once for all, by LAN_WIN32 in the environment.
bool IsWin32();

/// For the end of the program after the stop control. Wine's manager is asked by programs that take their time.
std::chrono::seconds StopLimit();

/// One adapter of the client's host as the wire shows it.
struct Adapter
{
    std::string name;
    std::string mac;
    std::string address;
    std::string mask = "255.255.255.0";
    std::string gateway = "";

    std::string Json() const;
};

/// The exact text that a host named STUDIO4 with the given adapters announces itself with.
/// @param type       wire name of the message
/// @param broadcast  "True" or "False"
/// @param source     the adapter that it leaves by, or null
std::string Announcement(const std::string& type, const std::string& broadcast, const std::vector<Adapter>& adapters,
                         const Adapter* source);

/// A request of the administration side; more holds the keys behind the header, each with a comma in front.
std::string Request(const std::string& type, const std::string& broadcast, const std::string& more = "");

/// A LAN of two hosts: the client's, where adapter lan0 has 10.77.0.2, and the administration's with 10.77.0.1. The test
/// runs on the client's.
class LanTest : public IsolatedTest<PrivateHost>
{
protected:
    void SetUp() override;

    /// Lays a cable from a new adapter of the client's host to another host, whose end has the address that ends in 1.
    static void Connect(const Adapter& adapter, const NetworkNamespace& far, const std::string& farName);

    /// Makes the folders of the program. The first start does so, too; under Wine its host keeps the adapters that are
    /// there then.
    void MakeHost();

    /// Starts the program; the station hears what it says from then on.
    void StartClient();

    /// Starts the program and takes its hello off the station.
    void StartAndHearHello();

    /// The next datagram has this text and goes from the given address of the host to the given destination.
    void ExpectHeard(const std::string& text, const std::string& destination = "255.255.255.255",
                     const std::string& source = "10.77.0.2") const;

    /// SIGTERM: a bye is heard and the program ends with exit code 0 within the limit.
    void ExpectCleanStop(bool withBye = true);

    const Adapter lan0{"lan0", "02:00:00:00:00:01", "10.77.0.2"};
    const Adapter lan1{"lan1", "02:00:00:00:00:02", "10.88.0.2"};
    std::unique_ptr<NetworkNamespace> office;
    std::unique_ptr<Station> station;
    std::unique_ptr<const HostFolders> folders;
    std::unique_ptr<ClientProcess> client;
};
} // namespace Lan
