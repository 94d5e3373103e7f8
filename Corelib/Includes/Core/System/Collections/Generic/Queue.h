#pragma once

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Array.h>
#include <Core/System/Checks.h>
#include <Core/System/Collections/Generic/ElementTraits.h>
#include <Core/System/Collections/Generic/ICollection.h>
#include <Core/System/Collections/Generic/NodeEnumerator.h>
#include <Core/System/InvalidOperationException.h>

#include <algorithm>
#include <cstdint>
#include <list>
#include <utility>
#include <vector>

namespace Tesmo::System::Collections::Generic
{
/// First in, first out. It has no lock: who shares a queue guards it.
template <class T>
class Queue : public Object, public ICollection<T>
{
public:
    using Enumerator = NodeEnumerator<Queue, T>;

    Queue() = default;
    Queue(const Queue&) = default;
    Queue& operator=(const Queue& other)
    {
        items = NotNull(other).items;
        version++;
        return *this;
    }
    ~Queue() override = default;

    /// Adds at the back.
    /// @throws ArgumentNullException  item is null
    void Enqueue(const T& item)
    {
        NotNull(item);
        version++;
        items.push_back(item);
    }

    /// Takes from the front.
    /// @throws InvalidOperationException  the queue is empty
    T Dequeue()
    {
        CheckNotEmpty();
        version++;
        T item = std::move(items.front());
        items.pop_front();
        return item;
    }

    /// The element at the front, which stays.
    /// @throws InvalidOperationException  the queue is empty
    const T& Peek() const
    {
        CheckNotEmpty();
        return items.front();
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
    /// False: elements may be added and taken out.
    bool IsFixedSize() const
    {
        return false;
    }
    Object& SyncRoot() override
    {
        return *this;
    }

    /// The same as Enqueue.
    void Add(const T& item) override
    {
        Enqueue(item);
    }

    void Clear() override
    {
        version++;
        items.clear();
    }

    bool Contains(const T& item) const override
    {
        return std::any_of(items.begin(), items.end(),
                           [&item](const T& element) { return Detail::AreEqual(element, item); });
    }

    void CopyTo(Array<T>& array, int index) const override
    {
        std::copy(items.begin(), items.end(), Detail::CopyTarget(array, index, Count()));
    }

    /// Not supported: always false, and nothing is taken out.
    bool Remove(const T&) override
    {
        return false;
    }

    /// Not supported: always -1.
    int IndexOf(const T&) const
    {
        return -1;
    }

    /// A copy of the elements, front first.
    Up<Array<T>> ToArray() const
    {
        return Up<Array<T>>(new Array<T>(std::vector<T>(items.begin(), items.end())));
    }

    Up<IEnumerator<T>> GetEnumerator() const override
    {
        return Up<IEnumerator<T>>(new Enumerator(*this));
    }

    /// From front to back, for loops by range. Adding elements leaves a position valid.
    typename std::list<T>::const_iterator begin() const
    {
        return items.begin();
    }
    typename std::list<T>::const_iterator end() const
    {
        return items.end();
    }

private:
    friend Enumerator;

    static const T& ElementAt(typename std::list<T>::const_iterator position)
    {
        return *position;
    }

    void CheckNotEmpty(CallSite site = CallSite::Here()) const
    {
        if (items.empty())
        {
            throw InvalidOperationException(site.file, site.line);
        }
    }

    std::list<T> items;
    std::uint64_t version = 0;
};
} // namespace Tesmo::System::Collections::Generic
