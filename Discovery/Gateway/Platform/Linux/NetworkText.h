#pragma once

#include "AddressPlan.h"

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// The pattern of systemd.network(5) that matches an adapter's name and no other; empty if there is none.
std::string MatchOf(const std::string& adapter);

/// The text of a .network file for the adapter of plan alone, made from the file that has configured it so far: the
/// addresses of plan replace all IPv4 addresses, IPv4 default routes and DHCPv4, the rest stays.
/// @param text   of the former file, followed by its drop-ins; may be empty
/// @param match  as MatchOf gives it
std::string MakeNetworkText(const std::string& text, const std::string& match, const AddressPlan& plan);

} // namespace Zelkor::Discovery::Client::Platform
