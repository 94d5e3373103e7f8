#pragma once

#include "../AdapterSettings.h"
#include "Failure.h"

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// A static IPv4 configuration that an adapter can have: checked, with its addresses in their usual text.
struct AddressPlan
{
    std::string adapter; ///< the kernel's name of it, which no program takes for an option
    std::string address; ///< dotted text, as are the next two
    std::string mask;
    std::string gateway;  ///< empty for none
    int prefixLength = 0; ///< 1 to 31
};

/// Checks what is asked for, by the texts alone. The address must be one that a host in its subnet can have, the
/// gateway a neighbour there, 0.0.0.0 or empty for none.
/// @param plan  receives the configuration, defined only on success
/// @returns what is wrong with it
Failure MakePlan(const AdapterSettings& settings, AddressPlan& plan);

} // namespace Zelkor::Discovery::Client::Platform
