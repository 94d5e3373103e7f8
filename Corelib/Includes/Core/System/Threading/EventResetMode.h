#pragma once

namespace Tesmo::System::Threading
{
/// What a wait does to an event that is set.
enum class EventResetMode
{
    AutoReset = 0,   ///< resets it: one waiter passes for each Set
    ManualReset = 1, ///< leaves it set until Reset
};
} // namespace Tesmo::System::Threading
