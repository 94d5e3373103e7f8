#include <Core/System/Threading/Lock.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Threading/Monitor.h>
#include <Core/System/ThrowSite.h>

#include <utility>

namespace Tesmo::System::Threading
{
Lock::Lock(const Object& lockedTarget)
{
    Monitor::Enter(lockedTarget);
    target = &lockedTarget;
}

Lock::~Lock()
{
    if (IsLocked())
    {
        Release();
    }
}

void Lock::Release()
{
    if (!IsLocked())
    {
        throw ArgumentNullException(ThrowSite);
    }
    Monitor::Exit(*std::exchange(target, nullptr));
}
} // namespace Tesmo::System::Threading
