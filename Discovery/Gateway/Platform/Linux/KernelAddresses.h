#pragma once

#include "AddressManager.h"

namespace Zelkor::Discovery::Client::Platform
{

/// For adapters that nobody manages: iproute2 tells the kernel, which forgets it at the next restart.
class KernelAddresses : public AddressManager
{
public:
    std::string Name() const override;
    Answer Examine(const std::string& adapter, Deadline deadline) override;
    Failure Apply(const AddressPlan& plan, Deadline deadline) override;
    std::string Remark() const override;
};

/// Removes all IPv4 addresses of an adapter; its IPv4 routes go with them.
Failure DropAddresses(const std::string& adapter, Deadline deadline);

} // namespace Zelkor::Discovery::Client::Platform
