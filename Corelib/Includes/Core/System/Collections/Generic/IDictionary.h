#pragma once

#include <Core/System/Collections/Generic/ICollection.h>
#include <Core/System/Collections/Generic/KeyValuePair.h>
#include <Core/System/Collections/Generic/List.h>

namespace Tesmo::System::Collections::Generic
{
/// A collection of values that are found by their keys. A null key gives ArgumentNullException throughout.
template <class K, class V>
class IDictionary : public ICollection<KeyValuePair<K, V>>
{
public:
    using ICollection<KeyValuePair<K, V>>::Add;
    using ICollection<KeyValuePair<K, V>>::Remove;

    /// Copies of the keys, in walk order.
    virtual Up<List<K>> Keys() const = 0;

    /// Copies of the values, in walk order.
    virtual Up<List<V>> Values() const = 0;

    /// @throws ArgumentNullException  key or value is null
    /// @throws ArgumentException      the key is there already
    virtual void Add(const K& key, const V& value) = 0;

    /// True where the key is there. Unlike reading by the operator [] it adds nothing.
    virtual bool ContainsKey(const K& key) const = 0;

    /// False where the key is absent.
    virtual bool Remove(const K& key) = 0;

    /// Copies the value of key; false, and value untouched, where the key is absent.
    virtual bool TryGetValue(const K& key, V& value) const = 0;

    /// @throws ArgumentException  the key is absent
    virtual const V& operator[](const K& key) const = 0;

    /// The value of key for reading or writing. An absent key is added with a default value, by reading too.
    virtual V& operator[](const K& key) = 0;
};
} // namespace Tesmo::System::Collections::Generic
