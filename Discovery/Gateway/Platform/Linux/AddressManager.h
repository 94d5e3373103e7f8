#pragma once

#include "AddressPlan.h"
#include "Answer.h"
#include "Failure.h"

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// A program that keeps the addresses of adapters, for one change of one adapter. The steps come in the order below:
/// after Apply, Keep once the adapter shows the addresses, or Withdraw after any failure. Each ends by its deadline.
class AddressManager
{
public:
    virtual ~AddressManager() = default;

    /// What operators call it.
    virtual std::string Name() const = 0;

    /// Reads what the manager knows of the adapter, for the steps that follow.
    /// @returns whether the manager owns the adapter; Unknown if it runs but doesn't answer
    virtual Answer Examine(const std::string& adapter, Deadline deadline) = 0;

    /// Turns the probes for duplicate addresses off for the running system, as well as it can. Most managers send none.
    virtual void DisableProbes(const std::string& /*adapter*/, Deadline /*deadline*/) {}

    /// Lets the addresses take effect. The adapter may show them only later.
    virtual Failure Apply(const AddressPlan& plan, Deadline deadline) = 0;

    /// Makes the change outlast a restart, where that is a step of its own.
    virtual Failure Keep(const AddressPlan& /*plan*/, Deadline /*deadline*/)
    {
        return {};
    }

    /// Undoes what Apply did, as far as the manager can, so that a restart doesn't apply it either.
    /// @returns why the former setting isn't back, where this is known
    virtual Failure Withdraw(const AddressPlan& /*plan*/, Deadline /*deadline*/)
    {
        return {};
    }

    /// Whether the manager sets addresses only while the adapter has a carrier.
    virtual bool NeedsCarrier() const
    {
        return false;
    }

    /// What an operator should know after a success, usually empty.
    virtual std::string Remark() const
    {
        return {};
    }

protected:
    AddressManager() = default;
    AddressManager(const AddressManager&) = default;
    AddressManager& operator=(const AddressManager&) = default;
};

} // namespace Zelkor::Discovery::Client::Platform
