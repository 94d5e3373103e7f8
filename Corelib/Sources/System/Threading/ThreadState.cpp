#include <Core/System/Threading/ThreadState.h>

namespace Tesmo::System::Threading
{
const EnumDeprecated::NameTable& ThreadState::Names() const
{
    static constexpr EnumName names[] = {
        {Running, "Running"},
        {StopRequested, "StopRequested"},
        {SuspendRequested, "SuspendRequested"},
        {Background, "Background"},
        {Unstarted, "Unstarted"},
        {Stopped, "Stopped"},
        {WaitSleepJoin, "WaitSleepJoin"},
        {Suspended, "Suspended"},
        {AbortRequested, "AbortRequested"},
        {Aborted, "Aborted"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Threading
