#include "WaitSleepJoin.h"

namespace Tesmo::System::Threading
{
WaitSleepJoin::WaitSleepJoin()
{
    Thread::ThreadData::RegisterCaller();
    caller = Thread::ThreadData::OfCaller();
    if (caller != null)
    {
        caller->Set(ThreadState::WaitSleepJoin);
        if (caller->interrupted)
        {
            caller->Interrupt();
        }
    }
}

WaitSleepJoin::~WaitSleepJoin()
{
    if (caller != null)
    {
        caller->Clear(ThreadState::WaitSleepJoin);
    }
}
} // namespace Tesmo::System::Threading
