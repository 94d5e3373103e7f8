#pragma once

#include "ThreadData.h"

namespace Tesmo::System::Threading
{
/// While an object of this class lives, the state of the calling thread shows that it waits. Its constructor interrupts
/// a thread for which that was asked before.
class WaitSleepJoin
{
public:
    WaitSleepJoin();
    ~WaitSleepJoin();

    WaitSleepJoin(const WaitSleepJoin&) = delete;
    WaitSleepJoin& operator=(const WaitSleepJoin&) = delete;

private:
    Sp<Thread::ThreadData> caller;
};
} // namespace Tesmo::System::Threading
