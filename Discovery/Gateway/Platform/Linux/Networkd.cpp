#include "Networkd.h"

#include "NetworkText.h"
#include "SystemBus.h"

#include <cjson/cJSON.h>
#include <filesystem>
#include <map>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* Service = "org.freedesktop.network1";
constexpr const char* ManagerPath = "/org/freedesktop/network1";
constexpr const char* ManagerInterface = "org.freedesktop.network1.Manager";
constexpr const char* LinkInterface = "org.freedesktop.network1.Link";

constexpr const char* OwnFolder = "/etc/systemd/network/";

/// Of the files that match an adapter, the first in the order of their names counts (decision 162).
std::string OwnName(const std::string& adapter)
{
    return "00-zelkor-discovery-" + adapter + ".network";
}

/// The texts of the drop-ins of a .network file, in the order of their names; of two with one name that of the first
/// folder counts (systemd.network(5)).
std::string ReadDropIns(const std::string& name)
{
    std::map<std::string, std::filesystem::path> found;
    for (const char* const folder :
         {OwnFolder, "/run/systemd/network/", "/usr/local/lib/systemd/network/", "/usr/lib/systemd/network/"})
    {
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(folder + name + ".d", error))
        {
            if (entry.path().extension() == ".conf")
            {
                found.emplace(entry.path().filename(), entry.path());
            }
        }
    }
    std::string text;
    for (const auto& [dropIn, path] : found)
    {
        text += "\n" + ReadConfiguration(path);
    }
    return text;
}

} // namespace

std::string Networkd::Name() const
{
    return "systemd-networkd";
}

bool Networkd::NeedsCarrier() const
{
    return true;
}

Answer Networkd::Examine(const std::string& adapter, Deadline deadline)
{
    SystemBus bus(deadline);
    if (const Answer isRunning = bus.IsRunning(Service); isRunning != Answer::Yes)
    {
        return isRunning;
    }
    BusMessage reply;
    int index = 0;
    const char* path = nullptr;
    if (bus.Call(Service, ManagerPath, ManagerInterface, "GetLinkByName", reply, "s", adapter.c_str()) != 0 ||
        !bus.Read(reply, "io", &index, &path))
    {
        return Answer::Unknown;
    }
    linkPath = path;
    state = bus.ReadText(Service, path, LinkInterface, "AdministrativeState", 's');
    return state.empty() ? Answer::Unknown : state == "unmanaged" ? Answer::No : Answer::Yes;
}

Failure Networkd::FindFile(Deadline deadline)
{
    SystemBus bus(deadline);
    BusMessage reply;
    const char* description = nullptr;
    if (bus.Call(Service, linkPath.c_str(), LinkInterface, "Describe", reply, "") != 0 ||
        !bus.Read(reply, "s", &description))
    {
        return Failure("does not describe the adapter: " + bus.LastError());
    }
    const std::unique_ptr<cJSON, decltype(&cJSON_Delete)> json(cJSON_Parse(description), cJSON_Delete);
    if (json == nullptr)
    {
        return Failure("does not describe the adapter in JSON");
    }
    const char* const file = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(json.get(), "NetworkFile"));
    currentFile = file == nullptr ? "" : file;
    const bool isUndecided = currentFile.empty() && (state == "pending" || state == "initialized");
    return isUndecided ? Failure("has not chosen a file for the adapter yet") : Failure();
}

Failure Networkd::Reload(Deadline deadline)
{
    SystemBus bus(deadline);
    BusMessage reply;
    const int error = bus.Call(Service, ManagerPath, ManagerInterface, "Reload", reply, "");
    return bus.LastError().empty() ? SystemFailure("does not reload", error)
                                   : Failure("does not reload: " + bus.LastError());
}

Failure Networkd::Apply(const AddressPlan& plan, Deadline deadline)
{
    const std::string match = MatchOf(plan.adapter);
    if (match.empty())
    {
        return Failure("no pattern matches the adapter's name alone");
    }
    if (Failure failure = FindFile(deadline))
    {
        return failure;
    }
    const std::string currentName = currentFile.substr(currentFile.rfind('/') + 1);
    const std::string ownName = OwnName(plan.adapter);
    if (!currentName.empty() && currentName < ownName)
    {
        return Failure(currentFile + " comes before every file of ours");
    }
    std::string text;
    if (!currentFile.empty())
    {
        text = ReadConfiguration(currentFile);
        if (text.empty())
        {
            return Failure(currentFile + " can't be read"); // what else it says would be lost
        }
        text += ReadDropIns(currentName);
    }
    if (Failure failure = Write(OwnFolder + ownName, MakeNetworkText(text, match, plan)))
    {
        return failure;
    }
    return Reload(deadline);
}

Failure Networkd::Write(const std::string& path, const std::string& text)
{
    staged = std::make_unique<StagedFile>(path);
    if (Failure failure = SystemFailure(path, staged->Prepare(text)))
    {
        return failure;
    }
    return SystemFailure(path, staged->Commit());
}

Failure Networkd::Keep(const AddressPlan&, Deadline)
{
    staged->Keep();
    return {};
}

Failure Networkd::Withdraw(const AddressPlan&, Deadline deadline)
{
    if (staged == nullptr)
    {
        return {};
    }
    Failure failure = SystemFailure("can't put the file back", staged->Restore());
    Failure reloadFailure = Reload(deadline);
    staged.reset();
    return failure ? failure : reloadFailure;
}

} // namespace Zelkor::Discovery::Client::Platform
