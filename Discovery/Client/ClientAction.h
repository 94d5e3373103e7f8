#pragma once

#include <Discovery/Client/ClientActionType.h>

namespace Zelkor::Discovery::Client
{
/// A task. Type tells its class; for BroadcastSignature this base is enough.
class ClientAction
{
public:
    explicit ClientAction(ClientActionType type) : Type(type) {}
    virtual ~ClientAction() = default;

    ClientActionType Type;
};
} // namespace Zelkor::Discovery::Client
