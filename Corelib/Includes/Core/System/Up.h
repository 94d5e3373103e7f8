#pragma once

#include <Core/System/Null.h>
#include <cstddef>
#include <exception>
#include <type_traits>
#include <utility>

namespace Tesmo
{
/// A class whose objects an owner of Base can hold: Base itself, or one derived from it.
template <class U, class Base>
concept HeldAs = std::is_convertible_v<U*, Base*>;

/// Sole owner of a heap object, or with Up<T[]> of a heap array.
template <class T>
class Up
{
public:
    using Element = std::remove_extent_t<T>;

    /// Holds nothing, or owns object from now on; a null pointer is nothing.
    Up() = default;
    Up(const Null&) {}
    explicit Up(Element* object) : pointer(object) {}
    Up(Up&& other) noexcept : pointer(other.Release()) {}

    /// Takes over from an owner of a derived class.
    template <HeldAs<T> U>
    Up(Up<U>&& other) noexcept : pointer(other.Release())
    {
    }

    Up& operator=(Up&& other) noexcept
    {
        if (this != &other)
        {
            Reset(other.Release());
        }
        return *this;
    }

    Up(const Up&) = delete;
    Up& operator=(const Up&) = delete;

    virtual ~Up()
    {
        Reset(nullptr);
    }

    /// Deletes what is held, then owns object, which may be a null pointer.
    void Reset(Element* object)
    {
        Element* const old = std::exchange(pointer, object);
        if constexpr (std::is_array_v<T>)
        {
            delete[] old;
        }
        else
        {
            delete old;
        }
    }

    /// Hands the object to the caller, who owns it from then on; this owner is empty afterwards.
    Element* Release() noexcept
    {
        return std::exchange(pointer, nullptr);
    }

    /// The object without a change of ownership; a null pointer when empty.
    Element* Get() const noexcept
    {
        return pointer;
    }

    /// @throws std::exception  the owner is empty
    Element& operator*() const
    {
        return *Checked();
    }

    /// @throws std::exception  the owner is empty
    Element* operator->() const
    {
        return Checked();
    }

    /// @throws std::exception  the owner is empty
    Element& operator[](std::size_t index) const requires std::is_array_v<T>
    {
        return Checked()[index];
    }

    friend bool operator==(const Up& up, const Null&)
    {
        return up.pointer == nullptr;
    }

private:
    Element* Checked() const
    {
        if (pointer == nullptr)
        {
            throw std::exception();
        }
        return pointer;
    }

    Element* pointer = nullptr;
};
} // namespace Tesmo
