#pragma once

#include <Discovery/Client/ClientActionType.h>

namespace Zelkor::Discovery::Client
{
/// A task. Type tells its class; for BroadcastSignature this base is enough.
class ClientAction
{
public:
    /// A task that needs to know nothing but what it is.
    explicit ClientAction(ClientActionType type) : Type(type) {}
    virtual ~ClientAction() = default;

    ClientActionType Type;
};
} // namespace Zelkor::Discovery::Client
