#pragma once

#include "Descriptor.h"

#include <chrono>
#include <functional>
#include <string>

/// Waits until something holds: looks at once, and again whenever the descriptor tells of an event.
/// @param events  readable when something happened; what is read from it is thrown away
/// @returns whether it holds; false after the limit
bool WaitUntil(const Descriptor& events, std::chrono::milliseconds limit, const std::function<bool()>& holds);

/// Waits until a name has an owner on the system bus, which may still be starting; fails the test after 10 seconds.
void WaitForBusName(const std::string& name);
