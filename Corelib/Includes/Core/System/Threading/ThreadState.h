#pragma once

#include <Core/System/FlagsEnum.h>

namespace Tesmo::System::Threading
{
/// What a thread is doing: flags, Running being none of them.
class ThreadState : public FlagsEnum
{
public:
    enum Constant
    {
        Running = 0,
        StopRequested = 1,
        SuspendRequested = 2,
        Background = 4,
        Unstarted = 8,
        Stopped = 16,
        WaitSleepJoin = 32,
        Suspended = 64,
        AbortRequested = 128,
        Aborted = 256,
    };

    /// A number is kept with the bits that no constant has; it prints in decimal then.
    ThreadState(Constant constant) : FlagsEnum(constant) {}
    explicit ThreadState(int number) : FlagsEnum(number) {}

    /// True when any of the flag's bits is set.
    bool Has(Constant flag) const
    {
        return (Value() & flag) != 0;
    }

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::Threading
