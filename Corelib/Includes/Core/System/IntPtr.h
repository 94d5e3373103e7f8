#pragma once

#include <Core/System/PointerWrapper.h>

namespace Tesmo::System
{
class IntPtr;
extern template class PointerWrapper<IntPtr, std::intptr_t>;

/// A signed integer of a pointer's size, such as a native handle.
class IntPtr : public PointerWrapper<IntPtr, std::intptr_t>
{
public:
    static const IntPtr Zero;

    /// 0, a number, or the address that a pointer holds.
    constexpr IntPtr() : PointerWrapper(0) {}
    constexpr IntPtr(std::intptr_t number) : PointerWrapper(number) {}
    template <class T>
    explicit IntPtr(T* pointer) : PointerWrapper(reinterpret_cast<std::intptr_t>(pointer))
    {
    }

    /// @throws OverflowException  the value does not fit
    std::int32_t ToInt32() const;
    std::int64_t ToInt64() const;
};

inline constinit const IntPtr IntPtr::Zero{};
} // namespace Tesmo::System
