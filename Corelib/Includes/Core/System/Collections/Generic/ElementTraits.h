#pragma once

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/ArrayDeclaration.h>
#include <Core/System/Checks.h>
#include <Core/System/Null.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>
#include <Core/System/Type.h>

#include <concepts>
#include <cstddef>

/// What the collections ask of their elements, which may be primitives, plain records, smart pointers or objects.
namespace Tesmo::System::Collections::Generic::Detail
{
/// Equality by the operator ==, or by Equals where a class of the tree has none. A null reference equals nothing.
template <class T>
bool AreEqual(const T& left, const T& right)
{
    if (IsNull(left) || IsNull(right))
    {
        return false;
    }
    if constexpr (std::equality_comparable<T>)
    {
        return left == right;
    }
    else
    {
        return left.Equals(right);
    }
}

/// Hash of a key: GetHashCode, or an integer's own value.
template <class K>
struct KeyHash
{
    std::size_t operator()(const K& key) const
    {
        if constexpr (std::integral<K>)
        {
            return static_cast<std::size_t>(key);
        }
        else
        {
            return static_cast<std::size_t>(key.GetHashCode());
        }
    }
};

template <class K>
struct KeyEqual
{
    bool operator()(const K& left, const K& right) const
    {
        return AreEqual(left, right);
    }
};

/// Where a CopyTo of count elements begins to write, once its arguments are found good.
template <class T>
T* CopyTarget(Array<T>& array, int index, int count, CallSite site = CallSite::Here())
{
    NotNull(array, site);
    NotNegative(index, site);
    if (count > array.Length() - index)
    {
        throw ArgumentException(site.file, site.line);
    }
    return array.begin() + index;
}

/// An element as text: an object's own, that of a primitive, or the name of the type.
template <class T>
String TextOf(const T& value)
{
    if constexpr (std::derived_from<T, Object>)
    {
        return value.ToString();
    }
    else if constexpr (Formattable<T>)
    {
        return String::Format(std::floating_point<T> ? "{0:g}" : "{0:d}", value); // all the digits of an integer
    }
    else
    {
        return Type(typeid(T)).ToString();
    }
}
} // namespace Tesmo::System::Collections::Generic::Detail
