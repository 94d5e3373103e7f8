#pragma once

#include "AddressPlan.h"
#include "SystemBus.h"

#include <string>
#include <vector>

namespace Zelkor::Discovery::Client::Platform
{

/// Why a step failed, in words for an operator; empty when it did not.
using Failure = std::string;

/// Whether an adapter is in a manager's hands. Unknown: the manager runs but does not answer.
enum class Ownership
{
    No,
    Yes,
    Unknown
};

/// A program that keeps the addresses of adapters, as the road of one change. In this order: Owns; Apply; then Keep when
/// the host shows the addresses, or Withdraw after any failure. Every step ends by its deadline.
class AddressManager
{
public:
    virtual ~AddressManager() = default;

    virtual std::string Name() const = 0;

    virtual Ownership Owns(const std::string& adapter, Deadline deadline) = 0;

    /// Turns the probes for duplicate addresses off for the running system. Most managers send none.
    virtual Failure DisableProbes(const std::string& adapter, Deadline deadline);

    /// Lets the addresses take effect. They may show on the adapter only later.
    virtual Failure Apply(const AddressPlan& plan, Deadline deadline) = 0;

    /// Makes what was applied outlast a restart, where that is a step of its own.
    virtual Failure Keep(const AddressPlan& plan, Deadline deadline);

    /// Takes back what Apply did, as far as the manager can, and sees to it that a restart does not apply it.
    /// @returns why the former setting is not there again, where this is known
    virtual Failure Withdraw(const AddressPlan& plan, Deadline deadline);

    /// True if the manager sets addresses only while the adapter has a carrier.
    virtual bool NeedsCarrier() const;

    /// What an operator should know of a success, usually empty.
    virtual std::string Remark() const;

protected:
    AddressManager() = default;
    AddressManager(const AddressManager&) = default;
    AddressManager& operator=(const AddressManager&) = default;
};

/// Runs a program that tells its success by exit code 0: as a child of this process.
Failure Run(const std::vector<std::string>& arguments, Deadline deadline);

/// The same for a program that needs rights over the network: see RunHostCommand.
Failure RunOnHost(const std::vector<std::string>& arguments, Deadline deadline);

/// Whether a service runs, by its name on the bus. Starts none.
Ownership Runs(SystemBus& bus, const char* service);

/// The first line of text that is not blank, printable ASCII alone, 200 characters at most.
std::string OneLine(const std::string& text);

} // namespace Zelkor::Discovery::Client::Platform
