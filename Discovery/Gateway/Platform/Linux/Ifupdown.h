#pragma once

#include "AddressManager.h"
#include "InterfacesText.h"
#include "StagedFile.h"

#include <memory>

namespace Zelkor::Discovery::Client::Platform
{

/// ifupdown, the default on Debian servers: rewrites the adapter's stanza in /etc/network/interfaces or a file that it
/// includes, and takes the adapter down by the old stanza and up by the new one, with its VLANs.
class Ifupdown : public AddressManager
{
public:
    std::string Name() const override;
    Answer Examine(const std::string& adapter, Deadline deadline) override;
    Failure Apply(const AddressPlan& plan, Deadline deadline) override;
    Failure Keep(const AddressPlan& plan, Deadline deadline) override;
    Failure Withdraw(const AddressPlan& plan, Deadline deadline) override;
    std::string Remark() const override;

private:
    struct File
    {
        std::string path;
        InterfacesText text;
    };

    void Load(const std::string& path);
    Failure Obstacle(const std::string& adapter) const;
    Failure TemplateObstacle(const std::string& adapter) const;
    Failure Prepare(const AddressPlan& plan, Deadline deadline);
    Failure Stage(const std::vector<const File*>& changed);
    Failure Commit();
    Failure BringUpVlans(Deadline deadline) const;

    std::vector<File> files; ///< in the order of reading
    std::vector<std::unique_ptr<StagedFile>> staged;
    std::string logicalName;        ///< by which ifup has configured the adapter, empty if it hasn't
    std::vector<std::string> vlans; ///< those of the adapter that were up, as entries of ifup's state
    std::string remark;
    bool wentDown = false;
};

} // namespace Zelkor::Discovery::Client::Platform
