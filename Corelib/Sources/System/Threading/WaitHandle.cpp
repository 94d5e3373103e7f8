#include <Core/System/Threading/WaitHandle.h>

#include "WaitSleepJoin.h"
#include <Platform/WaitObjects.h>
#include <System/NumberCast.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>
#include <Core/System/IO/IOException.h>
#include <Core/System/Threading/AbandonedMutexException.h>
#include <Core/System/ThrowSite.h>
#include <Core/System/TimeSpan.h>

#include <climits>
#include <memory>
#include <utility>

namespace Tesmo::System::Threading
{
using Platform::WaitObject;
using Platform::WaitObjectResult;

namespace
{
struct Closer
{
    void operator()(WaitObject* object) const
    {
        Platform::CloseWaitObject(*object);
    }
};

using OwnedObject = std::unique_ptr<WaitObject, Closer>;

/// The value that all copies of a handle share.
class SharedHandle : public IntPtr
{
public:
    explicit SharedHandle(OwnedObject nativeObject) : IntPtr(nativeObject.get()), object(std::move(nativeObject)) {}

    const OwnedObject object;
};
} // namespace

bool WaitHandle::Equals(const Object& other) const
{
    if (IsNull(other))
    {
        return false;
    }
    const auto* const waitHandle = dynamic_cast<const WaitHandle*>(&other);
    return waitHandle != nullptr && NativeObject() != nullptr && waitHandle->NativeObject() == NativeObject();
}

void WaitHandle::Close()
{
    handle.Reset(nullptr);
}

bool WaitHandle::WaitOne(const TimeSpan& timeout)
{
    NotNull(timeout);
    return WaitOne(NumberCast<int>(timeout.TotalMilliseconds()));
}

bool WaitHandle::WaitOne(int milliseconds)
{
    if (NativeObject() == nullptr)
    {
        throw AbandonedMutexException(ThrowSite);
    }
    return Wait(milliseconds);
}

bool WaitHandle::WaitOne()
{
    const WaitSleepJoin waiting;
    return WaitOne(-1);
}

bool WaitHandle::SignalAndWait(WaitHandle& toSignal, WaitHandle& toWaitOn)
{
    return SignalAndWait(toSignal, toWaitOn, -1);
}

bool WaitHandle::SignalAndWait(WaitHandle& toSignal, WaitHandle& toWaitOn, int milliseconds)
{
    return toSignal.Signal() && toWaitOn.Wait(milliseconds);
}

bool WaitHandle::SignalAndWait(WaitHandle& toSignal, WaitHandle& toWaitOn, const TimeSpan& timeout)
{
    NotNull(timeout);
    const double milliseconds = timeout.TotalMilliseconds();
    if (milliseconds < 0 || milliseconds > INT_MAX)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return SignalAndWait(toSignal, toWaitOn, static_cast<int>(milliseconds));
}

void WaitHandle::Adopt(WaitObjectResult result, WaitObject* object, bool& createdNew)
{
    if (result == WaitObjectResult::NameTooLong)
    {
        throw ArgumentException(ThrowSite);
    }
    if (result == WaitObjectResult::Failed)
    {
        throw IO::IOException(ThrowSite);
    }
    OwnedObject owned(object); // it must not leak when the handle cannot be made
    createdNew = result == WaitObjectResult::Created;
    handle.Reset(new SharedHandle(std::move(owned)));
}

WaitObject* WaitHandle::NativeObject() const
{
    return handle == null ? nullptr : static_cast<SharedHandle&>(*handle).object.get();
}

bool WaitHandle::WaitFor(WaitObject& object, int milliseconds)
{
    if (milliseconds < -1)
    {
        throw ArgumentException(ThrowSite);
    }
    return Platform::WaitForObject(object, milliseconds);
}

Up<char[]> WaitHandle::NativeName(const String& name)
{
    NotNull(name);
    return name.ToCCharArray();
}

Up<char[]> WaitHandle::NativeNameOfExisting(const String& name)
{
    NotNull(name);
    if (name.IsEmpty())
    {
        throw ArgumentNullException(ThrowSite);
    }
    return name.ToCCharArray();
}
} // namespace Tesmo::System::Threading
