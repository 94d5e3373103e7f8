#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace Tesmo
{
namespace Detail
{
/// Storage that the null reference refers into. It is zero and lies in read-only memory, so a write through a null
/// reference faults. A reference that is bound to its start, and each up-cast of it, stays inside the block.
struct alignas(64) NullBlock
{
    static constexpr std::size_t Size = 4096; ///< bytes; larger than any class that is passed by reference
    unsigned char bytes[Size];
};

extern const NullBlock nullBlock;
} // namespace Detail

/// The class of `null`: converts to a null reference of any class.
class Null
{
public:
    /// The null reference of class T. It may be bound, passed on, up-cast and tested with IsNull, nothing else.
    template <class T>
    requires std::is_class_v<T>
    constexpr operator const T&() const noexcept
    {
        static_assert(sizeof(T) <= Detail::NullBlock::Size, "a null reference must stay inside its block");
        return *reinterpret_cast<const T*>(Detail::nullBlock.bytes);
    }
};

/// The null reference: may be passed for any `const T&` parameter of class type; each public operation decides at its
/// head what that means. For a constructor with one argument say which class is meant: `static_cast<const String&>(null)`.
inline constexpr Null null{};

/// True when the reference is the null reference, whatever class or base class it was bound or up-cast to.
/// Compilers take for granted that a reference's address is not zero and delete such a test, hence the block.
template <class T>
bool IsNull(const T& reference) noexcept
{
    const auto address = reinterpret_cast<std::uintptr_t>(&reinterpret_cast<const volatile char&>(reference));
    return address - reinterpret_cast<std::uintptr_t>(&Detail::nullBlock) < Detail::NullBlock::Size;
}
} // namespace Tesmo
