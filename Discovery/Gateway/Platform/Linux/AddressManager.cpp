#include "AddressManager.h"

namespace Zelkor::Discovery::Client::Platform
{

void AddressManager::DisableProbes(const std::string&, Deadline) {}

Failure AddressManager::Keep(const AddressPlan&, Deadline)
{
    return {};
}

Failure AddressManager::Withdraw(const AddressPlan&, Deadline)
{
    return {};
}

bool AddressManager::NeedsCarrier() const
{
    return false;
}

std::string AddressManager::Remark() const
{
    return {};
}

} // namespace Zelkor::Discovery::Client::Platform
