#pragma once

#include <Core/System/Collections/Generic/ICollection.h>

namespace Tesmo::System::Collections::Generic
{
/// A collection whose elements have a position, counted from 0.
template <class T>
class IList : public ICollection<T>
{
public:
    /// True where what would change the number of elements gives InvalidOperationException (Array).
    virtual bool IsFixedSize() const = 0;

    /// The position of the first element that equals item, -1 where there is none.
    virtual int IndexOf(const T& item) const = 0;

    /// Puts item before the element at index.
    /// @throws ArgumentOutOfRangeException  index is negative or above Count()
    virtual void Insert(int index, const T& item) = 0;

    /// @throws ArgumentOutOfRangeException  index is negative, or not below Count()
    virtual void RemoveAt(int index) = 0;

    /// The element in its place. A change through it counts as no change of the collection: walks go on.
    /// @throws IndexOutOfRangeException     index lies outside of an Array
    /// @throws ArgumentOutOfRangeException  index lies outside of another list
    virtual const T& operator[](int index) const = 0;
    virtual T& operator[](int index) = 0;
};
} // namespace Tesmo::System::Collections::Generic
