#pragma once

#include <cstdint>

namespace Zelkor::Discovery::Client
{
/// What a task of the task processor is.
enum class ClientActionType : std::int32_t
{
    BroadcastSignature = 0,
    Hello = 1,
    ChangeYourIPConfig = 2,
    ChangeYourHostName = 3,
};
} // namespace Zelkor::Discovery::Client
