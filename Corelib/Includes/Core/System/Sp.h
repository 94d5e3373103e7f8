#pragma once

#include <Core/System/Null.h>
#include <Core/System/Up.h>
#include <atomic>
#include <cstdint>
#include <exception>
#include <memory>
#include <type_traits>
#include <utility>

namespace Tesmo
{
/// Shared owner. The count lies in a block of its own, so any class can be held; owners on any number of threads may be
/// copied and released in any order, but one Sp object must not be written by two threads at once.
template <class T>
class Sp
{
public:
    /// Holds nothing: equals null.
    Sp() = default;
    Sp(const Null&) {}

    /// Takes ownership; a null pointer gives an empty Sp.
    explicit Sp(T* object)
    {
        Own(object);
    }

    /// @throws std::exception  other is the null reference
    Sp(const Sp& other)
    {
        Share(other);
    }

    /// Shares the object under one of its bases.
    /// @throws std::exception  other is the null reference
    template <HeldAs<T> U>
    Sp(const Sp<U>& other)
    {
        Share(other);
    }

    Sp(Sp&& other) noexcept : pointer(std::exchange(other.pointer, nullptr)), count(std::exchange(other.count, nullptr))
    {
    }

    /// Takes the object over from its sole owner, which is empty afterwards.
    template <HeldAs<T> U>
    explicit Sp(Up<U>&& sole)
    {
        Own(sole.Release());
    }

    /// @throws std::exception  other is the null reference
    Sp& operator=(const Sp& other)
    {
        Sp copy(other);
        Swap(copy);
        return *this;
    }

    Sp& operator=(Sp&& other) noexcept
    {
        Sp taken(std::move(other));
        Swap(taken);
        return *this;
    }

    virtual ~Sp()
    {
        Leave();
    }

    /// Releases what is held, then owns object; a null pointer leaves the Sp empty.
    void Reset(T* object)
    {
        Leave();
        Own(object);
    }

    /// @throws std::exception  the Sp is empty
    T& operator*() const
    {
        return *Checked();
    }

    /// @throws std::exception  the Sp is empty
    T* operator->() const
    {
        return Checked();
    }

    /// The number of owners at this moment, 0 when empty. Other threads may change it at any time.
    std::uint32_t UseCount() const noexcept
    {
        return count == nullptr ? 0 : count->load(std::memory_order_acquire);
    }

    friend bool operator==(const Sp& sp, const Null&)
    {
        return sp.count == nullptr;
    }

    /// Both fields: the same object of the same owners.
    friend bool operator==(const Sp& left, const Sp& right)
    {
        return left.pointer == right.pointer && left.count == right.count;
    }

private:
    template <class U>
    friend class Sp;

    using Count = std::atomic<std::uint32_t>;

    T* Checked() const
    {
        if (count == nullptr)
        {
            throw std::exception();
        }
        return pointer;
    }

    void Own(T* object)
    {
        if (object != nullptr)
        {
            std::unique_ptr<T> guard(object); // the object must not leak when the counter cannot be made
            count = new Count(1);
            pointer = guard.release();
        }
    }

    template <class U>
    void Share(const Sp<U>& other)
    {
        if (IsNull(other))
        {
            throw std::exception();
        }
        if (other.count != nullptr)
        {
            other.count->fetch_add(1, std::memory_order_relaxed);
            pointer = other.pointer;
            count = other.count;
        }
    }

    void Leave()
    {
        Count* const oldCount = std::exchange(count, nullptr);
        T* const oldPointer = std::exchange(pointer, nullptr);
        if (oldCount != nullptr && oldCount->fetch_sub(1, std::memory_order_acq_rel) == 1)
        {
            delete oldCount;
            delete oldPointer;
        }
    }

    void Swap(Sp& other) noexcept
    {
        std::swap(pointer, other.pointer);
        std::swap(count, other.count);
    }

    T* pointer = nullptr;
    Count* count = nullptr;
};
} // namespace Tesmo
