#pragma once

#include "AddressPlan.h"

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// The pattern that matches one adapter's name and nothing else in the form of systemd.network(5), empty for a name that
/// has none.
std::string MatchOf(const std::string& adapter);

/// The text of a .network file for the adapter of plan alone, made from the file that it has been configured by: with
/// the addresses of plan in the place of every IPv4 address, IPv4 default route and DHCPv4. All else stays.
/// @param text   of the former file, its drop-ins behind it; may be empty
/// @param match  as MatchOf gives it
std::string MakeNetworkText(const std::string& text, const std::string& match, const AddressPlan& plan);

} // namespace Zelkor::Discovery::Client::Platform
