#pragma once

#include <Discovery/Client/ClientActionType.h>

namespace Zelkor::Discovery::Client
{
/// A task. Its class is told by Type; a plain one of type BroadcastSignature is complete.
class ClientAction
{
public:
    explicit ClientAction(ClientActionType type) : Type(type) {}
    virtual ~ClientAction() = default;

    ClientActionType Type;
};
} // namespace Zelkor::Discovery::Client
