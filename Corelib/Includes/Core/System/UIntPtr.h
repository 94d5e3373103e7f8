#pragma once

#include <Core/System/PointerWrapper.h>

namespace Tesmo::System
{
class UIntPtr;
extern template class PointerWrapper<UIntPtr, std::uintptr_t>;

/// An unsigned integer of a pointer's size.
class UIntPtr : public PointerWrapper<UIntPtr, std::uintptr_t>
{
public:
    static const UIntPtr Zero;

    /// 0, a number, or the address that a pointer holds.
    constexpr UIntPtr() : PointerWrapper(0) {}
    constexpr UIntPtr(std::uintptr_t number) : PointerWrapper(number) {}
    template <class T>
    explicit UIntPtr(T* pointer) : PointerWrapper(reinterpret_cast<std::uintptr_t>(pointer))
    {
    }

    /// @throws OverflowException  the value does not fit
    std::uint32_t ToUInt32() const;
    std::uint64_t ToUInt64() const;
};

inline constinit const UIntPtr UIntPtr::Zero{};
} // namespace Tesmo::System
