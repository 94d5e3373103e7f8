#pragma once

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/Array.h>
#include <Core/System/Checks.h>
#include <Core/System/Collections/Generic/ElementTraits.h>
#include <Core/System/Collections/Generic/IDictionary.h>
#include <Core/System/Collections/Generic/NodeEnumerator.h>

#include <cstdint>
#include <utility>

namespace Tesmo::System::Collections::Generic
{
/// What Dictionary and SortedDictionary share: every operation over a map of the standard library.
template <class Map, class K, class V>
class DictionaryBase : public Object, public IDictionary<K, V>
{
public:
    using Pair = KeyValuePair<K, V>;
    using Enumerator = NodeEnumerator<DictionaryBase, Pair>;

    int Count() const override
    {
        return static_cast<int>(map.size());
    }
    bool IsReadOnly() const override
    {
        return false;
    }
    bool IsSynchronized() const override
    {
        return false;
    }
    /// False: entries may be added and taken out.
    bool IsFixedSize() const
    {
        return false;
    }
    Object& SyncRoot() override
    {
        return *this;
    }

    Up<List<K>> Keys() const override
    {
        Up<List<K>> keys(new List<K>(Count()));
        for (const auto& entry : map)
        {
            keys->Add(entry.first);
        }
        return keys;
    }

    Up<List<V>> Values() const override
    {
        Up<List<V>> values(new List<V>(Count()));
        for (const auto& entry : map)
        {
            values->Add(entry.second);
        }
        return values;
    }

    void Add(const K& key, const V& value) override
    {
        NotNull(key);
        NotNull(value);
        if (!map.try_emplace(key, value).second)
        {
            throw ArgumentException(ThrowSite);
        }
        version++;
    }

    void Add(const Pair& pair) override
    {
        NotNull(pair);
        Add(pair.Key(), pair.Value());
    }

    void Clear() override
    {
        version++;
        map.clear();
    }

    bool ContainsKey(const K& key) const override
    {
        NotNull(key);
        return map.contains(key);
    }

    /// True where the key is there with an equal value.
    bool Contains(const Pair& pair) const override
    {
        if (IsNull(pair))
        {
            return false;
        }
        const auto found = map.find(pair.Key());
        return found != map.end() && Detail::AreEqual(found->second, pair.Value());
    }

    bool Remove(const K& key) override
    {
        NotNull(key);
        if (map.erase(key) == 0)
        {
            return false;
        }
        version++;
        return true;
    }

    /// Only where the key is there with an equal value.
    bool Remove(const Pair& pair) override
    {
        return Contains(pair) && Remove(pair.Key());
    }

    bool TryGetValue(const K& key, V& value) const override
    {
        NotNull(key);
        const auto found = map.find(key);
        if (found == map.end())
        {
            return false;
        }
        value = found->second;
        return true;
    }

    const V& operator[](const K& key) const override
    {
        NotNull(key);
        const auto found = map.find(key);
        if (found == map.end())
        {
            throw ArgumentException(ThrowSite);
        }
        return found->second;
    }

    /// Counts as a change, by reading too.
    V& operator[](const K& key) override
    {
        NotNull(key);
        version++;
        return map[key];
    }

    void CopyTo(Array<Pair>& array, int index) const override
    {
        Pair* target = Detail::CopyTarget(array, index, Count());
        for (const auto& entry : map)
        {
            *target = Pair(entry.first, entry.second);
            target++;
        }
    }

    Up<IEnumerator<Pair>> GetEnumerator() const override
    {
        return Up<IEnumerator<Pair>>(new Enumerator(*this));
    }

    /// The entries as pairs of the standard library: `for (const auto& [key, value] : dictionary)`.
    typename Map::const_iterator begin() const
    {
        return map.begin();
    }
    typename Map::const_iterator end() const
    {
        return map.end();
    }

protected:
    explicit DictionaryBase(Map entries) : map(std::move(entries)) {}
    DictionaryBase(const DictionaryBase&) = default;
    DictionaryBase& operator=(const DictionaryBase& other)
    {
        map = NotNull(other).map;
        version++;
        return *this;
    }

    /// Adds the entries of another dictionary.
    /// @throws ArgumentNullException  source is null
    void AddAll(const IDictionary<K, V>& source)
    {
        NotNull(source);
        const Up<IEnumerator<Pair>> walk = source.GetEnumerator();
        while (walk->MoveNext())
        {
            Add(walk->Current());
        }
    }

private:
    friend Enumerator;

    static Pair ElementAt(typename Map::const_iterator position)
    {
        return Pair(position->first, position->second);
    }

    Map map;
    std::uint64_t version = 0;
};
} // namespace Tesmo::System::Collections::Generic
