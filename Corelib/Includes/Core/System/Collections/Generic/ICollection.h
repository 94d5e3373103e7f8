#pragma once

#include <Core/System/ArrayDeclaration.h>
#include <Core/System/Collections/Generic/IEnumerable.h>
#include <Core/System/Object.h>

namespace Tesmo::System::Collections::Generic
{
/// A countable set of elements. No collection of the library locks: who shares one guards it.
template <class T>
class ICollection : public IEnumerable<T>
{
public:
    virtual int Count() const = 0;           ///< number of elements
    virtual bool IsReadOnly() const = 0;     ///< true where every change is refused; nowhere in the library
    virtual bool IsSynchronized() const = 0; ///< true where the operations lock; nowhere in the library

    /// The object that users of a shared collection agree to lock: the collection itself.
    virtual Object& SyncRoot() = 0;

    /// @throws ArgumentNullException  item is null
    virtual void Add(const T& item) = 0;

    /// Takes out all elements.
    /// @throws InvalidOperationException  the number of elements is fixed (Array)
    virtual void Clear() = 0;

    /// False for null.
    virtual bool Contains(const T& item) const = 0;

    /// Writes all elements, in walk order, from index on.
    /// @throws ArgumentNullException        array is null
    /// @throws ArgumentOutOfRangeException  index is negative
    /// @throws ArgumentException            the elements do not fit between index and the array's end
    virtual void CopyTo(Array<T>& array, int index) const = 0;

    /// Takes out the first element that equals item; false where there is none.
    virtual bool Remove(const T& item) = 0;
};
} // namespace Tesmo::System::Collections::Generic
