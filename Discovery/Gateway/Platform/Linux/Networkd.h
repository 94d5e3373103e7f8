#pragma once

#include "AddressManager.h"
#include "StagedFile.h"

#include <memory>

namespace Zelkor::Discovery::Client::Platform
{

/// systemd-networkd: writes a .network file for the adapter alone that comes before the one in force, because a drop-in
/// can't take addresses back and the one in force may serve several adapters.
class Networkd : public AddressManager
{
public:
    std::string Name() const override;
    Answer Examine(const std::string& adapter, Deadline deadline) override;
    Failure Apply(const AddressPlan& plan, Deadline deadline) override;
    Failure Keep(const AddressPlan& plan, Deadline deadline) override;
    Failure Withdraw(const AddressPlan& plan, Deadline deadline) override;
    bool NeedsCarrier() const override;

private:
    Failure FindFile(Deadline deadline);
    Failure Write(const std::string& path, const std::string& text);
    static Failure Reload(Deadline deadline);

    std::string linkPath;    ///< the adapter's object on the bus
    std::string state;       ///< its AdministrativeState
    std::string currentFile; ///< the .network file that configures the adapter now, empty for none
    std::unique_ptr<StagedFile> staged;
};

} // namespace Zelkor::Discovery::Client::Platform
