#pragma once

#include <Core/System/Object.h>

namespace Tesmo::System::Threading
{
/// Holds the monitor of an object for a scope. It belongs to the thread that made it.
class Lock
{
public:
    /// Waits without limit. The target must outlive this object.
    /// @throws ArgumentNullException  target is null
    [[nodiscard]] explicit Lock(const Object& target);

    /// Releases the lock if it is still held.
    ~Lock();

    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

    /// True until Release.
    bool IsLocked() const
    {
        return target != nullptr;
    }

    /// Releases the lock before the end of the scope.
    /// @throws ArgumentNullException  it is released already
    void Release();

private:
    const Object* target = nullptr;
};
} // namespace Tesmo::System::Threading
