#pragma once

#include "AddressPlan.h"
#include "LogicalLines.h"

#include <string>
#include <vector>

namespace Zelkor::Discovery::Client::Platform
{

/// One file in the form of interfaces(5), in which the IPv4 part of one adapter is rewritten. The rest stays byte by
/// byte.
class InterfacesText
{
public:
    /// @param text  of the whole file
    explicit InterfacesText(const std::string& text);

    /// The whole file as it is now.
    std::string Text() const;

    /// What a line says that includes other files.
    struct Inclusion
    {
        std::string pattern; ///< for wordexp(3), of one word or several
        bool isFolder;       ///< source-directory, or source-dir for short
    };

    /// The files that this one includes, in the order of its lines.
    std::vector<Inclusion> Inclusions() const;

    /// Whether the adapter has a stanza here.
    /// @param family  inet, inet6 or another; empty for any
    bool HasStanza(const std::string& adapter, const std::string& family = "") const;

    /// Why the IPv4 part of the adapter can't be rewritten.
    Failure Obstacle(const std::string& adapter) const;

    /// The name of the stanza that the adapter's first IPv4 stanza inherits from, empty if it inherits nothing.
    std::string Template(const std::string& adapter) const;

    /// Whether the first IPv4 stanza of an adapter or template sets addresses.
    /// @param name  of the adapter or template
    bool HasAddresses(const std::string& name) const;

    /// Removes the adapter's IPv4 stanzas, all or all but the first.
    /// @returns their lines without the heads
    std::vector<LogicalLine> TakeStanzas(const std::string& adapter, bool keepFirst);

    /// Turns the adapter's first IPv4 stanza into a static one with the addresses of plan, at its place; if there is
    /// none, puts one before the adapter's first stanza. Options that don't set addresses stay; those in more are
    /// added.
    void WriteStanza(const AddressPlan& plan, const std::vector<LogicalLine>& more);

    /// Has the start of the host bring the adapter up, by an `auto` line before the adapter's first stanza.
    void WriteAuto(const std::string& adapter);

private:
    /// Indexes of lines: of the head, and the one after the last option.
    struct Stanza
    {
        std::size_t begin;
        std::size_t end;
    };
    std::vector<Stanza> Stanzas(const std::string& adapter, const std::string& family) const;

    std::vector<LogicalLine> lines;
};

} // namespace Zelkor::Discovery::Client::Platform
