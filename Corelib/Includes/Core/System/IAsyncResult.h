#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System
{
/// The state of an operation that runs on without its caller. No class of the library has one.
class IAsyncResult : public Virtual
{
};
} // namespace Tesmo::System
