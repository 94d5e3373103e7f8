#include "ClientState.h"

#include <Core/System/ArgumentException.h>
#include <Core/System/ThrowSite.h>

namespace Zelkor::Discovery::Client
{
Tesmo::System::String ToDisplayText(ClientState state)
{
    switch (state)
    {
    case ClientState::Unstarted:
        return "Unstarted";
    case ClientState::Starting:
        return "Starting";
    case ClientState::Running:
        return "Running";
    case ClientState::Stopping:
        return "Stopping";
    case ClientState::Stopped:
        return "Stopped";
    }
    throw Tesmo::System::ArgumentException(ThrowSite);
}
} // namespace Zelkor::Discovery::Client
