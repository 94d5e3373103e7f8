#pragma once

#include "AddressPlan.h"
#include "LogicalLines.h"

#include <string>
#include <vector>

namespace Zelkor::Discovery::Client::Platform
{

/// One file in the form of interfaces(5), to be read and to have the IPv4 part of one adapter rewritten. What it does
/// not concern stays as it stands, byte by byte.
class InterfacesText
{
public:
    explicit InterfacesText(const std::string& text);

    std::string Text() const;

    /// A line that pulls other files in.
    struct Inclusion
    {
        std::string pattern; ///< for wordexp(3), of one word or several
        bool isFolder;       ///< source-directory, or source-dir for short
    };
    std::vector<Inclusion> Inclusions() const;

    /// Whether a stanza of the adapter is there.
    /// @param family  inet, inet6 or another; empty for any
    bool HasStanza(const std::string& adapter, const std::string& family = "") const;

    /// Why the IPv4 part of the adapter can't be rewritten.
    Failure Obstacle(const std::string& adapter) const;

    /// The stanza that the adapter's first IPv4 stanza inherits from, empty if there is none.
    std::string Template(const std::string& adapter) const;

    /// Whether the first IPv4 stanza of a name says addresses.
    bool HasAddresses(const std::string& name) const;

    /// Takes the adapter's IPv4 stanzas out, all or all but the first.
    /// @returns the lines that stood beneath their heads
    std::vector<LogicalLine> TakeStanzas(const std::string& adapter, bool keepFirst);

    /// Makes the adapter's first IPv4 stanza a static one with the addresses of plan, where it stands; without one, puts
    /// it before the adapter's first stanza of another family. Its other options stay, and those in more join them.
    void WriteStanza(const AddressPlan& plan, const std::vector<LogicalLine>& more);

    /// Puts a line before the adapter's first stanza that has the adapter brought up when the host starts.
    void WriteAuto(const std::string& adapter);

private:
    /// Indexes of lines: the head, and behind the last option.
    struct Stanza
    {
        std::size_t begin;
        std::size_t end;
    };
    std::vector<Stanza> Stanzas(const std::string& adapter, const std::string& family) const;

    std::vector<LogicalLine> lines;
};

} // namespace Zelkor::Discovery::Client::Platform
