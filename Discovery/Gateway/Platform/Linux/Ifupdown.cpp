#include "Ifupdown.h"

#include "../Adapters.h"
#include "Ascii.h"
#include "HostCommand.h"
#include "KernelAddresses.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <net/if.h>
#include <unistd.h>
#include <wordexp.h>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* MainFile = "/etc/network/interfaces";
constexpr const char* Program = "/sbin/ifup";
constexpr std::size_t MaximumFiles = 256;
constexpr int MaximumTemplates = 16;       // each inheriting from the next
constexpr unsigned int FirstMetric = 1000; // of a second default route, before the adapter's index

/// Whether ifup takes a name as it is: it puts names into shell commands without quotes, and takes what follows '=' for
/// another name (decision 167).
bool IsPlainName(const std::string& adapter)
{
    return std::all_of(adapter.begin(), adapter.end(),
                       [](char c) { return IsLetterOrDigit(c) || std::strchr("._-+@", c) != nullptr; });
}

/// Whether another adapter has a gateway: the kernel takes two default routes only with different metrics.
bool HasOtherGateway(const std::string& adapter)
{
    std::vector<Adapter> adapters;
    ReadAdapters(adapters);
    return std::any_of(adapters.begin(), adapters.end(),
                       [&adapter](const Adapter& other)
                       { return other.friendlyName != adapter && other.gatewayText[0] != '\0'; });
}

std::vector<std::string> Expand(const std::string& pattern)
{
    std::vector<std::string> paths;
    wordexp_t words = {};
    if (wordexp(pattern.c_str(), &words, WRDE_NOCMD) == 0)
    {
        paths.assign(words.we_wordv, words.we_wordv + words.we_wordc);
        wordfree(&words);
    }
    return paths;
}

/// The files that source-directory takes: their names consist of letters, digits, '_' and '-'.
std::vector<std::string> FilesIn(const std::string& folder)
{
    std::vector<std::string> paths;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error))
    {
        const std::string name = entry.path().filename();
        if (std::all_of(name.begin(), name.end(), [](char c) { return IsLetterOrDigit(c) || c == '_' || c == '-'; }))
        {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::vector<std::string> Included(const InterfacesText::Inclusion& inclusion, const std::string& folder)
{
    const bool isAbsolute = inclusion.pattern.starts_with('/');
    std::vector<std::string> files;
    for (const std::string& path : Expand(isAbsolute ? inclusion.pattern : folder + inclusion.pattern))
    {
        const std::vector<std::string> found = inclusion.isFolder ? FilesIn(path) : std::vector{path};
        files.insert(files.end(), found.begin(), found.end());
    }
    return files;
}

/// The adapters that ifup has configured, in its order: each one's name, '=' and its logical name.
std::vector<std::string> ReadState()
{
    std::vector<std::string> state;
    for (const LogicalLine& line : SplitLines(ReadConfiguration("/run/network/ifstate")))
    {
        state.push_back(line.text);
    }
    return state;
}

/// The name by which ifup has configured an adapter, empty if it hasn't.
std::string ReadLogicalName(const std::string& adapter)
{
    for (const std::string& entry : ReadState())
    {
        if (entry.starts_with(adapter + "="))
        {
            return entry.substr(adapter.size() + 1);
        }
    }
    return {};
}

std::vector<std::string> ReadVlans(const std::string& adapter)
{
    std::vector<std::string> vlans = ReadState();
    std::erase_if(vlans, [&adapter](const std::string& entry) { return !entry.starts_with(adapter + "."); });
    return vlans;
}

/// Whether the start of the host brings an adapter up, which a line may name or match by a pattern.
bool IsStarted(const std::string& adapter, Deadline deadline)
{
    constexpr std::array<const char*, 2> Classes = {"auto", "hotplug"};
    return std::any_of(Classes.begin(), Classes.end(),
                       [&](const char* name)
                       {
                           const CommandResult names = RunCommand({"ifquery", "--list", "--allow", name}, deadline);
                           return ("\n" + names.output).find("\n" + adapter + "\n") != std::string::npos;
                       });
}

/// By the stanza that is in the file now. A hook that fails doesn't stop the change. A VLAN, bridge or bond may be gone
/// then, until ifup makes it again.
Failure TakeDown(const std::string& adapter, Deadline deadline)
{
    RunHostCommand({"ifdown", "--force", adapter}, deadline);
    return if_nametoindex(adapter.c_str()) == 0 ? Failure() : DropAddresses(adapter, deadline);
}

/// @param entry  an adapter's name, or an entry of the state
Failure BringUp(const std::string& entry, Deadline deadline)
{
    if (Failure failure = ProgramFailure("ifup", RunHostCommand({"ifup", entry}, deadline)))
    {
        return failure;
    }
    const bool isUp = !ReadLogicalName(entry.substr(0, entry.find('='))).empty();
    return isUp ? Failure() : Failure("ifup leaves it down"); // exit code 0 also if it can't make the adapter
}

} // namespace

std::string Ifupdown::Name() const
{
    return "ifupdown";
}

Answer Ifupdown::Examine(const std::string& adapter, Deadline)
{
    if (access(Program, X_OK) != 0)
    {
        return Answer::No;
    }
    Load(MainFile);
    const bool named =
        std::any_of(files.begin(), files.end(), [&](const File& file) { return file.text.HasStanza(adapter); });
    logicalName = ReadLogicalName(adapter);
    const bool mapped = !logicalName.empty() && logicalName != adapter;
    return named || mapped ? Answer::Yes : Answer::No;
}

void Ifupdown::Load(const std::string& path)
{
    const bool known = std::any_of(files.begin(), files.end(), [&](const File& file) { return file.path == path; });
    if (known || files.size() >= MaximumFiles)
    {
        return;
    }
    files.push_back({path, InterfacesText(ReadConfiguration(path))});
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    for (const InterfacesText::Inclusion& inclusion : files.back().text.Inclusions())
    {
        for (const std::string& file : Included(inclusion, folder))
        {
            Load(file);
        }
    }
}

Failure Ifupdown::Obstacle(const std::string& adapter) const
{
    if (!IsPlainName(adapter))
    {
        return Failure("ifup would read more than a name in the adapter's name");
    }
    if (logicalName != adapter && !logicalName.empty())
    {
        return Failure("the adapter is configured by the shared name " + logicalName);
    }
    for (const File& file : files)
    {
        if (const Failure obstacle = file.text.Obstacle(adapter))
        {
            return Failure(file.path + ": " + obstacle.Reason());
        }
    }
    return TemplateObstacle(adapter);
}

/// ifup puts inherited options first; an address that is set twice makes its command fail (decision 166).
Failure Ifupdown::TemplateObstacle(const std::string& adapter) const
{
    std::string name = adapter;
    for (int depth = 0; depth < MaximumTemplates; ++depth)
    {
        const auto has = [&](const File& file) { return file.text.HasStanza(name, "inet"); };
        const auto file = std::find_if(files.begin(), files.end(), has);
        if (file != files.end() && depth > 0 && file->text.HasAddresses(name))
        {
            return Failure(file->path + ": the template " + name + " says addresses");
        }
        name = file == files.end() ? "" : file->text.Template(name);
    }
    return {};
}

/// Makes all IPv4 stanzas of the adapter one, at the place of the first.
Failure Ifupdown::Prepare(const AddressPlan& plan, Deadline deadline)
{
    const auto has = [&](const char* family)
    { return [&plan, family](const File& file) { return file.text.HasStanza(plan.adapter, family); }; };
    auto target = std::find_if(files.begin(), files.end(), has("inet"));
    target = target != files.end() ? target : std::find_if(files.begin(), files.end(), has(""));
    std::vector<LogicalLine> options = target->text.TakeStanzas(plan.adapter, true);
    std::vector<const File*> changed = {&*target};
    for (auto file = std::next(target); file != files.end(); ++file)
    {
        if (file->text.HasStanza(plan.adapter, "inet"))
        {
            const std::vector<LogicalLine> taken = file->text.TakeStanzas(plan.adapter, false);
            options.insert(options.end(), taken.begin(), taken.end());
            changed.push_back(&*file);
        }
    }
    if (!plan.gateway.empty() && HasOtherGateway(plan.adapter))
    {
        const std::string metric = "metric " + std::to_string(FirstMetric + if_nametoindex(plan.adapter.c_str()));
        options.push_back({"    " + metric + "\n", metric});
    }
    target->text.WriteStanza(plan, options);
    if (!IsStarted(plan.adapter, deadline))
    {
        target->text.WriteAuto(plan.adapter);
    }
    return Stage(changed);
}

Failure Ifupdown::Stage(const std::vector<const File*>& changed)
{
    for (const File* const file : changed)
    {
        staged.push_back(std::make_unique<StagedFile>(file->path));
        if (Failure failure = SystemFailure(file->path, staged.back()->Prepare(file->text.Text())))
        {
            return failure;
        }
    }
    return {};
}

Failure Ifupdown::Commit()
{
    for (const auto& file : staged)
    {
        if (Failure failure = SystemFailure("can't replace the file", file->Commit()))
        {
            return failure;
        }
    }
    return {};
}

// decision 163
Failure Ifupdown::Apply(const AddressPlan& plan, Deadline deadline)
{
    if (Failure failure = Obstacle(plan.adapter))
    {
        return failure;
    }
    if (Failure failure = Prepare(plan, deadline))
    {
        return failure;
    }
    wentDown = true;
    vlans = ReadVlans(plan.adapter);
    if (Failure failure = TakeDown(plan.adapter, deadline))
    {
        return failure;
    }
    if (Failure failure = Commit())
    {
        return failure;
    }
    if (Failure failure = BringUp(plan.adapter, deadline))
    {
        return failure;
    }
    remark = BringUpVlans(deadline).Reason();
    return {};
}

/// ifdown took them down with the adapter, but ifup brings up the adapter alone (decision 164).
Failure Ifupdown::BringUpVlans(Deadline deadline) const
{
    std::string failures;
    for (const std::string& vlan : vlans)
    {
        if (const Failure failure = BringUp(vlan, deadline))
        {
            failures += (failures.empty() ? "" : "; ") + vlan.substr(0, vlan.find('=')) +
                        " did not come up again: " + failure.Reason();
        }
    }
    return failures.empty() ? Failure() : Failure(failures);
}

Failure Ifupdown::Keep(const AddressPlan&, Deadline)
{
    for (const auto& file : staged)
    {
        file->Keep();
    }
    return {};
}

Failure Ifupdown::Withdraw(const AddressPlan& plan, Deadline deadline)
{
    Failure failure;
    for (const auto& file : staged)
    {
        const Failure latest = SystemFailure("can't put the file back", file->Restore());
        failure = latest ? latest : failure;
    }
    if (!wentDown)
    {
        return failure;
    }
    static_cast<void>(TakeDown(plan.adapter, deadline)); // ifup tells if that matters
    const Failure upFailure = BringUp(plan.adapter, deadline);
    const Failure vlanFailure = BringUpVlans(deadline);
    return failure ? failure : upFailure ? upFailure : vlanFailure;
}

std::string Ifupdown::Remark() const
{
    return remark;
}

} // namespace Zelkor::Discovery::Client::Platform
