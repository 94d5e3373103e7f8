#pragma once

#include "ThreadData.h"

namespace Tesmo::System::Threading
{
/// Shows in the state of the calling thread, while it stands, that the thread waits. A thread that was interrupted
/// before ends here.
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
