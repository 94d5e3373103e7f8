#pragma once

#include <set>
#include <string>
#include <sys/types.h>
#include <vector>

/// A program that keeps the addresses of adapters; None: nobody does.
enum class Manager
{
    None,
    NetworkManager,
    Networkd,
    Ifupdown
};

/// Lets the real manager run the adapters of the calling thread's network. Before, the test has entered a PrivateHost,
/// whose mounts the thread shares: what is written there ends with that, and the daemons end with this object.
class ManagedHost
{
public:
    explicit ManagedHost(Manager manager);
    ~ManagedHost();
    ManagedHost(const ManagedHost&) = delete;
    ManagedHost& operator=(const ManagedHost&) = delete;

    /// False where the manager is not installed: the test is to be skipped.
    bool IsInstalled() const;

    /// Gives an Ethernet adapter its addresses by the manager's own configuration, which counts from the next start on.
    /// The IPv6 address fd00::1/64 comes with them.
    /// @param addresses  IPv4 with prefix lengths, parted by blanks
    /// @param gateway    dotted, or empty
    void Configure(const std::string& adapter, const std::string& addresses, const std::string& gateway);

    /// Starts the manager, which sets the configured addresses, and waits until it answers.
    void Start();

    /// Ends the manager without a warning and takes away what a restart of the host takes away.
    void Stop();

    /// Lets the daemon stand still: it gets messages and does not answer.
    void Freeze() const;

private:
    void ForEachAdapter(const std::string& commands) const;

    const struct Recipe& recipe;
    pid_t bus = -1;
    pid_t daemon = -1;
    std::set<std::string> adapters;
};
