#pragma once

#include <Core/System/EventArgs.h>
#include <Core/System/Net/IPAddress.h>
#include <Core/System/Sp.h>
#include <Discovery/Client/ClientAction.h>

namespace Zelkor::Discovery::Client
{
/// A task with the address that its answer goes to: 255.255.255.255 for everybody.
class ClientActionArgs : public Tesmo::System::EventArgs
{
public:
    /// Share the task.
    ClientActionArgs(const Tesmo::Sp<ClientAction>& action, const Tesmo::System::Net::IPAddress& address)
        : Action(action),
          Address(address)
    {
    }
    ClientActionArgs(const ClientActionArgs&) = default;

    Tesmo::Sp<ClientAction> Action;
    Tesmo::System::Net::IPAddress Address;
};
} // namespace Zelkor::Discovery::Client
