#pragma once

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/Collections/Generic/Comparer.h>
#include <Core/System/Collections/Generic/DictionaryBase.h>
#include <Core/System/Sp.h>

#include <map>

namespace Tesmo::System::Collections::Generic
{
/// The order of a map, as a comparer says.
template <class K>
class MapComparer
{
public:
    /// @param order  not empty
    explicit MapComparer(const Sp<IComparer<K>>& order) : comparer(order) {}

    /// True where left comes before right.
    bool operator()(const K& left, const K& right) const
    {
        return comparer->Compare(left, right) < 0;
    }

private:
    Sp<IComparer<K>> comparer;
};

/// Values found by their keys and walked in the order of a comparer. Not safe for concurrent use.
template <class K, class V>
class SortedDictionary : public DictionaryBase<std::map<K, V, MapComparer<K>>, K, V>
{
    using Map = std::map<K, V, MapComparer<K>>;

public:
    /// In the natural order of the keys: that of Comparer.
    SortedDictionary() : SortedDictionary(Comparer<K>::Default()) {}

    /// @throws ArgumentNullException  comparer is null or empty
    explicit SortedDictionary(const Sp<IComparer<K>>& comparer)
        : DictionaryBase<Map, K, V>(Map(MapComparer<K>(NotEmpty(comparer))))
    {
    }

    /// @throws ArgumentNullException  source is null
    explicit SortedDictionary(const IDictionary<K, V>& source) : SortedDictionary()
    {
        this->AddAll(source);
    }

    SortedDictionary(const SortedDictionary&) = default;
    SortedDictionary& operator=(const SortedDictionary&) = default;
    ~SortedDictionary() override = default;
};
} // namespace Tesmo::System::Collections::Generic
