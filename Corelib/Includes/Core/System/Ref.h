#pragma once

#include <Core/System/Checks.h>
#include <exception>

namespace Tesmo
{
/// A link to an object that somebody else owns. It never deletes.
template <class T>
class Ref
{
public:
    /// Links to nothing: equals null.
    Ref() = default;
    Ref(const Null&) {}
    /// @throws ArgumentNullException  object is the null reference
    Ref(T& object, System::CallSite site = System::CallSite::Here()) : pointer(&object)
    {
        System::NotNull(object, site);
    }

    /// @throws std::exception  other is the null reference
    Ref(const Ref& other) : pointer(Checked(other).pointer) {}
    Ref& operator=(const Ref& other)
    {
        pointer = Checked(other).pointer;
        return *this;
    }
    virtual ~Ref() = default;

    /// @throws std::exception  the link is empty
    T& operator*() const
    {
        return *Checked();
    }

    /// @throws std::exception  the link is empty
    T* operator->() const
    {
        return Checked();
    }

    friend bool operator==(const Ref& ref, const Null&)
    {
        return ref.pointer == nullptr;
    }

private:
    static const Ref& Checked(const Ref& other)
    {
        if (IsNull(other))
        {
            throw std::exception();
        }
        return other;
    }

    T* Checked() const
    {
        if (pointer == nullptr)
        {
            throw std::exception();
        }
        return pointer;
    }

    T* pointer = nullptr;
};
} // namespace Tesmo
