#pragma once

#include <Core/System/String.h>

namespace Zelkor::Discovery::Client
{
/// Where a client stands in its life.
enum class ClientState
{
    Unstarted = 0,
    Starting = 1,
    Running = 2,
    Stopping = 3,
    Stopped = 4,
};

/// The name of the state.
/// @throws ArgumentException  state is none of the five
Tesmo::System::String ToDisplayText(ClientState state);
} // namespace Zelkor::Discovery::Client
