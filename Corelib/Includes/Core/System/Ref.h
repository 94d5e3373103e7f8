#pragma once

#include <Core/System/Null.h>
#include <exception>

namespace Tesmo
{
/// A link to an object that somebody else owns. It never deletes.
template <class T>
class Ref
{
public:
    Ref() = default;
    Ref(const Null&) {}
    Ref(T& object) : pointer(&object) {}
    Ref(const Ref&) = default;
    Ref& operator=(const Ref&) = default;
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
