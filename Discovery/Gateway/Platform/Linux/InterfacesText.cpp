#include "InterfacesText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

using Lines = std::vector<LogicalLine>;

template <std::size_t Count>
bool IsOneOf(const std::array<std::string_view, Count>& words, const std::string& word)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// Whether a word begins a stanza, and so ends the one before it.
bool IsKeyword(const std::string& word)
{
    constexpr std::array<std::string_view, 9> Keywords = {
        "iface", "mapping", "auto", "rename", "source", "source-directory", "source-dir", "no-auto-down", "no-scripts"};
    return word.starts_with("allow-") || IsOneOf(Keywords, word);
}

/// Whether a method only sets addresses; others (ppp, tunnel) make the adapter itself.
bool IsPlainMethod(const std::string& method)
{
    constexpr std::array<std::string_view, 5> Methods = {"static", "dhcp", "bootp", "manual", "ipv4ll"};
    return IsOneOf(Methods, method);
}

/// Whether an option sets what a plan sets.
bool IsAddressOption(const std::string& option)
{
    constexpr std::array<std::string_view, 6> Options = {"address", "netmask", "broadcast",
                                                         "network", "gateway", "pointopoint"};
    return IsOneOf(Options, option);
}

/// Whether an option may be repeated, and each time counts.
bool IsRepeatable(const std::string& option)
{
    constexpr std::array<std::string_view, 6> Options = {"up", "post-up", "pre-up", "down", "pre-down", "post-down"};
    return option.starts_with("dns-") || IsOneOf(Options, option);
}

std::string FirstWord(const LogicalLine& line)
{
    return line.text.substr(0, line.text.find_first_of(" \t"));
}

std::string Indentation(const LogicalLine& line)
{
    return line.raw.substr(0, line.raw.find_first_not_of(" \t"));
}

/// Adds a line to a stanza, unless the stanza has it already, has an option of its name that counts once, or gets its
/// addresses from a plan.
void Add(const LogicalLine& line, Lines& stanza)
{
    const std::string option = FirstWord(line);
    const bool isComment = IsComment(line);
    const auto clashes = [&](const LogicalLine& other)
    { return other.text == line.text || (FirstWord(other) == option && !IsRepeatable(option)); };
    if (isComment || (!IsAddressOption(option) && std::none_of(stanza.begin(), stanza.end(), clashes)))
    {
        stanza.push_back(line);
    }
}

/// @param head  of the stanza that is rewritten, empty for a new one
Lines MakeHead(const AddressPlan& plan, const LogicalLine& head, const std::string& indentation)
{
    std::string first = Indentation(head) + "iface " + plan.adapter + " inet static";
    const std::vector<std::string> words = SplitWords(head.text);
    for (std::size_t i = 4; i < words.size(); ++i)
    {
        first += " " + words[i];
    }
    Lines lines = {{first + "\n", first}};
    const auto add = [&](const std::string& option) { lines.push_back({indentation + option + "\n", option}); };
    add("address " + plan.address);
    add("netmask " + plan.mask);
    if (!plan.gateway.empty())
    {
        add("gateway " + plan.gateway);
    }
    return lines;
}

} // namespace

InterfacesText::InterfacesText(const std::string& text) : lines(SplitLines(text)) {}

std::string InterfacesText::Text() const
{
    return JoinLines(lines);
}

std::vector<InterfacesText::Inclusion> InterfacesText::Inclusions() const
{
    std::vector<Inclusion> inclusions;
    for (const LogicalLine& line : lines)
    {
        const std::string keyword = FirstWord(line);
        const std::size_t rest = line.text.find_first_not_of(" \t", keyword.size());
        const bool isFolder = keyword == "source-directory" || keyword == "source-dir";
        if ((isFolder || keyword == "source") && rest != std::string::npos)
        {
            inclusions.push_back({line.text.substr(rest), isFolder});
        }
    }
    return inclusions;
}

std::vector<InterfacesText::Stanza> InterfacesText::Stanzas(const std::string& adapter, const std::string& family) const
{
    std::vector<Stanza> stanzas;
    bool within = false;
    for (std::size_t i = 0; i < lines.size(); ++i)
    {
        if (IsComment(lines[i]))
        {
            continue;
        }
        const std::vector<std::string> words = SplitWords(lines[i].text);
        if (!words.empty() && IsKeyword(words[0]))
        {
            within = words.size() > 2 && words[0] == "iface" && words[1] == adapter &&
                     (family.empty() || words[2] == family);
            if (within)
            {
                stanzas.push_back({i, i});
            }
        }
        if (within)
        {
            stanzas.back().end = i + 1;
        }
    }
    return stanzas;
}

bool InterfacesText::HasStanza(const std::string& adapter, const std::string& family) const
{
    return !Stanzas(adapter, family).empty();
}

Failure InterfacesText::Obstacle(const std::string& adapter) const
{
    if (HasStanza(adapter, "inherits"))
    {
        return Failure("a stanza inherits its address family");
    }
    for (const Stanza& stanza : Stanzas(adapter, "inet"))
    {
        const std::vector<std::string> words = SplitWords(lines[stanza.begin].text);
        if (words.size() < 4 || !IsPlainMethod(words[3]))
        {
            return Failure("a stanza has another method than static, dhcp or manual");
        }
    }
    return {};
}

std::string InterfacesText::Template(const std::string& adapter) const
{
    const std::vector<Stanza> stanzas = Stanzas(adapter, "inet");
    const std::vector<std::string> words = SplitWords(stanzas.empty() ? "" : lines[stanzas.front().begin].text);
    const auto keyword = std::find(words.begin(), words.end(), "inherits");
    return words.end() - keyword > 1 ? *std::next(keyword) : "";
}

bool InterfacesText::HasAddresses(const std::string& name) const
{
    const std::vector<Stanza> stanzas = Stanzas(name, "inet");
    const Stanza stanza = stanzas.empty() ? Stanza{0, 0} : stanzas.front();
    return std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(stanza.begin),
                       lines.begin() + static_cast<std::ptrdiff_t>(stanza.end),
                       [](const LogicalLine& line) { return IsAddressOption(FirstWord(line)); });
}

std::vector<LogicalLine> InterfacesText::TakeStanzas(const std::string& adapter, bool keepFirst)
{
    const std::vector<Stanza> stanzas = Stanzas(adapter, "inet");
    Lines taken;
    for (std::size_t i = stanzas.size();
         i-- > (keepFirst ? 1 : 0);) // from the end, so that the other indexes stay right
    {
        const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(stanzas[i].begin);
        const auto end = lines.begin() + static_cast<std::ptrdiff_t>(stanzas[i].end);
        taken.insert(taken.begin(), begin + 1, end);
        lines.erase(begin, end);
    }
    return taken;
}

void InterfacesText::WriteStanza(const AddressPlan& plan, const std::vector<LogicalLine>& more)
{
    const std::vector<Stanza> stanzas = Stanzas(plan.adapter, "inet");
    const std::vector<Stanza> others = Stanzas(plan.adapter, "");
    const Stanza place = !stanzas.empty() ? stanzas.front() : Stanza{others.front().begin, others.front().begin};
    const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(place.begin);
    const auto end = lines.begin() + static_cast<std::ptrdiff_t>(place.end);
    const Lines old(begin, end);
    Lines stanza = MakeHead(plan, old.empty() ? LogicalLine() : old[0],
                            old.size() > 1 ? Indentation(old[1]) : std::string(4, ' '));
    for (std::size_t i = 1; i < old.size(); ++i)
    {
        if (IsComment(old[i]) || !IsAddressOption(FirstWord(old[i])))
        {
            stanza.push_back(old[i]);
        }
    }
    for (const LogicalLine& line : more)
    {
        Add(line, stanza);
    }
    lines.insert(lines.erase(begin, end), stanza.begin(), stanza.end());
}

void InterfacesText::WriteAuto(const std::string& adapter)
{
    const auto head = lines.begin() + static_cast<std::ptrdiff_t>(Stanzas(adapter, "").front().begin);
    const std::string line = "auto " + adapter;
    lines.insert(head, {Indentation(*head) + line + "\n", line});
}

} // namespace Zelkor::Discovery::Client::Platform
