#pragma once

#include <Core/System/Collections/Generic/DictionaryBase.h>

#include <unordered_map>

namespace Tesmo::System::Collections::Generic
{
/// Values found by the hash of their keys: GetHashCode, or an integer's own value. The walk has no order that a caller
/// may rely on. Not safe for concurrent use.
template <class K, class V>
class Dictionary : public DictionaryBase<std::unordered_map<K, V, Detail::KeyHash<K>, Detail::KeyEqual<K>>, K, V>
{
    using Map = std::unordered_map<K, V, Detail::KeyHash<K>, Detail::KeyEqual<K>>;
    static constexpr int InitialBuckets = 8;

public:
    /// Empty, with room for at least 8 entries before the table grows.
    Dictionary() : DictionaryBase<Map, K, V>(Map(InitialBuckets)) {}

    /// @throws ArgumentNullException  source is null
    explicit Dictionary(const IDictionary<K, V>& source) : Dictionary()
    {
        this->AddAll(source);
    }

    Dictionary(const Dictionary&) = default;
    Dictionary& operator=(const Dictionary&) = default;
    ~Dictionary() override = default;
};
} // namespace Tesmo::System::Collections::Generic
