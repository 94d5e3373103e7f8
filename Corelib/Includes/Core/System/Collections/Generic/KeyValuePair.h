#pragma once

#include <Core/System/Collections/Generic/ElementTraits.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

namespace Tesmo::System::Collections::Generic
{
/// One entry of a dictionary.
template <class K, class V>
class KeyValuePair : public Object
{
public:
    /// Of default values, or of copies of key and value.
    KeyValuePair() = default;
    KeyValuePair(const K& pairKey, const V& pairValue) : key(pairKey), value(pairValue) {}

    /// Parts of this pair, valid as long as it is.
    const K& Key() const
    {
        return key;
    }
    const V& Value() const
    {
        return value;
    }

    /// True for a pair of the same types with equal key and equal value.
    bool Equals(const Object& other) const override
    {
        if (IsNull(other))
        {
            return false;
        }
        const auto* const pair = dynamic_cast<const KeyValuePair*>(&other);
        return pair != nullptr && *this == *pair;
    }

    /// "[key, value]"
    String ToString() const override
    {
        return "[" + Detail::TextOf(key) + ", " + Detail::TextOf(value) + "]";
    }

    bool operator==(const KeyValuePair& other) const
    {
        return Detail::AreEqual(key, other.key) && Detail::AreEqual(value, other.value);
    }

private:
    K key{};
    V value{};
};
} // namespace Tesmo::System::Collections::Generic
