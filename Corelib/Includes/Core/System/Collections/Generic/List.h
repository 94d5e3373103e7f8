#pragma once

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Array.h>
#include <Core/System/Checks.h>
#include <Core/System/Collections/Generic/ElementTraits.h>
#include <Core/System/Collections/Generic/IList.h>
#include <Core/System/Collections/Generic/IndexEnumerator.h>

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Tesmo::System::Collections::Generic
{
/// A growing sequence. Not safe for concurrent use. Loops in hot paths walk it by index or by range, as GetEnumerator
/// allocates.
template <class T>
class List : public Object, public IList<T>
{
    static_assert(!std::same_as<T, bool>, "a vector of bool has no elements to refer to: use Boolean");

public:
    using Enumerator = IndexEnumerator<List, T>;

    List() = default;

    /// An empty list with room for capacity elements.
    /// @throws ArgumentOutOfRangeException  capacity is negative
    explicit List(int capacity)
    {
        items.reserve(static_cast<std::size_t>(NotNegative(capacity)));
    }

    /// Copies the elements in their order.
    /// @throws ArgumentNullException  source is null
    explicit List(const IEnumerable<T>& source)
    {
        NotNull(source);
        const Up<IEnumerator<T>> walk = source.GetEnumerator();
        while (walk->MoveNext())
        {
            items.push_back(walk->Current());
        }
    }

    List(const List&) = default;
    List(List&&) noexcept = default;
    List& operator=(const List& other)
    {
        items = NotNull(other).items;
        version++;
        return *this;
    }
    List& operator=(List&& other) noexcept
    {
        items = std::move(other.items);
        version++;
        return *this;
    }
    ~List() override = default;

    /// True for a list of the same element type with equal elements in the same order.
    bool Equals(const Object& other) const override
    {
        if (IsNull(other))
        {
            return false;
        }
        const auto* const list = dynamic_cast<const List*>(&other);
        return list != nullptr && std::equal(begin(), end(), list->begin(), list->end(), Detail::AreEqual<T>);
    }

    /// The first match among count elements from startIndex on, or -1. An empty list gives -1 before any check.
    /// @throws ArgumentOutOfRangeException  the range does not lie in the list
    virtual int IndexOf(const T& item, int startIndex, int count) const
    {
        if (items.empty())
        {
            return -1;
        }
        CheckRange(CheckIndex(startIndex, Count()), count, Count());
        return Find(item, startIndex, count);
    }

    /// The first match from startIndex to the end, or -1.
    virtual int IndexOf(const T& item, int startIndex) const
    {
        return IndexOf(item, startIndex, Count() - std::clamp(startIndex, 0, Count()));
    }

    int IndexOf(const T& item) const override
    {
        return Find(item, 0, Count());
    }

    int Count() const override
    {
        return static_cast<int>(items.size());
    }
    bool IsReadOnly() const override
    {
        return false;
    }
    bool IsSynchronized() const override
    {
        return false;
    }
    bool IsFixedSize() const override
    {
        return false;
    }
    Object& SyncRoot() override
    {
        return *this;
    }

    void Add(const T& item) override
    {
        NotNull(item);
        version++;
        items.push_back(item);
    }

    void Clear() override
    {
        version++;
        items.clear();
    }

    bool Contains(const T& item) const override
    {
        return IndexOf(item) >= 0;
    }

    void CopyTo(Array<T>& array, int index) const override
    {
        std::copy(begin(), end(), Detail::CopyTarget(array, index, Count()));
    }

    /// @throws ArgumentOutOfRangeException  index is negative or above Count()
    /// @throws ArgumentNullException        item is null
    void Insert(int index, const T& item) override
    {
        CheckRange(index, 0, Count());
        NotNull(item);
        version++;
        items.insert(items.begin() + index, item);
    }

    bool Remove(const T& item) override
    {
        const int index = IndexOf(item);
        if (index < 0)
        {
            return false;
        }
        RemoveAt(index);
        return true;
    }

    void RemoveAt(int index) override
    {
        CheckIndex(index, Count());
        version++;
        items.erase(items.begin() + index);
    }

    /// An index equal to Count() passes and gives the place behind the last element, which must not be used.
    /// A change of an element in place does not count as a change of the list.
    /// @throws ArgumentOutOfRangeException  index is negative or above Count()
    const T& operator[](int index) const override
    {
        return *(begin() + CheckIndex(index, Count() + 1));
    }
    T& operator[](int index) override
    {
        return *(begin() + CheckIndex(index, Count() + 1));
    }

    /// A copy of the elements in their order.
    Up<Array<T>> ToArray() const
    {
        return Up<Array<T>>(new Array<T>(items));
    }

    Up<IEnumerator<T>> GetEnumerator() const override
    {
        return Up<IEnumerator<T>>(new Enumerator(*this));
    }

    /// The elements in one piece, for loops by range. Invalid when elements are added or taken out.
    const T* begin() const
    {
        return Storage();
    }
    const T* end() const
    {
        return Storage() + items.size();
    }
    T* begin()
    {
        return const_cast<T*>(Storage());
    }
    T* end()
    {
        return begin() + items.size();
    }

private:
    friend Enumerator;

    /// The first element. A list that never held one stands on the null block, so that the place behind its last
    /// element is the null reference.
    const T* Storage() const
    {
        const T* const data = items.data();
        return data != nullptr ? data : reinterpret_cast<const T*>(Tesmo::Detail::nullBlock.bytes);
    }

    int Find(const T& item, int startIndex, int count) const
    {
        const auto equals = [&item](const T& element) { return Detail::AreEqual(element, item); };
        const T* const last = begin() + startIndex + count;
        const T* const found = std::find_if(begin() + startIndex, last, equals);
        return found == last ? -1 : static_cast<int>(found - begin());
    }

    std::vector<T> items;
    std::uint64_t version = 0;
};
} // namespace Tesmo::System::Collections::Generic
