#pragma once

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/ArrayDeclaration.h>
#include <Core/System/Checks.h>
#include <Core/System/Collections/Generic/ElementTraits.h>
#include <Core/System/Collections/Generic/IList.h>
#include <Core/System/Collections/Generic/IndexEnumerator.h>
#include <Core/System/IndexOutOfRangeException.h>
#include <Core/System/InvalidOperationException.h>

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tesmo::System
{
namespace Detail
{
/// T or const T.
template <class U, class T>
concept MaybeConst = std::same_as<std::remove_const_t<U>, T>;
} // namespace Detail

/// A fixed number of elements. What would change the number (Add, Clear, Insert, Remove, RemoveAt) gives
/// InvalidOperationException.
template <class T, int Rank>
class Array : public Object, public Collections::Generic::IList<T>
{
    static_assert(Rank == 1, "arrays have one dimension");
    static_assert(!std::same_as<T, bool>, "a vector of bool has no elements to refer to: use Boolean");

public:
    using Enumerator = Collections::Generic::IndexEnumerator<Array, T>;
    using ReverseEnumerator = Collections::Generic::IndexEnumerator<Array, T, true>;

    /// length elements of default value. Takes an int and nothing else, so that a character is an element.
    /// @throws ArgumentOutOfRangeException  length is negative
    template <std::same_as<int> Integer>
    explicit Array(Integer length) : items(static_cast<std::size_t>(NotNegative(length)))
    {
    }

    /// Copies length elements.
    /// @throws ArgumentNullException        source is a null pointer
    /// @throws ArgumentOutOfRangeException  length is negative
    template <Detail::MaybeConst<T> U>
    Array(U* source, int length)
    {
        NotNull(source);
        items.assign(source, source + NotNegative(length));
    }

    /// The elements given. A single int would be a length.
    explicit Array(const T& value) requires(!std::same_as<T, int>) : items{value} {}
    Array(const T& first, const T& second) : items{first, second} {}
    Array(const T& first, const T& second, const T& third) : items{first, second, third} {}
    Array(const T& first, const T& second, const T& third, const T& fourth) : items{first, second, third, fourth} {}
    Array(const T& first, const T& second, const T& third, const T& fourth, const T& fifth)
        : items{first, second, third, fourth, fifth}
    {
    }

    /// Takes the elements over.
    explicit Array(std::vector<T> source) : items(std::move(source)) {}

    Array(const Array&) = default;
    Array(Array&&) noexcept = default;
    Array& operator=(const Array& other)
    {
        items = NotNull(other).items;
        version++;
        return *this;
    }
    Array& operator=(Array&& other) noexcept
    {
        items = std::move(other.items);
        version++;
        return *this;
    }
    ~Array() override = default;

    /// The number of elements, which nothing but assignment changes.
    int Length() const
    {
        return static_cast<int>(items.size());
    }
    int Count() const override
    {
        return Length();
    }

    /// @throws IndexOutOfRangeException  index is negative, or not below Length()
    const T& operator[](int index) const override
    {
        return items[CheckedIndex(index)];
    }
    T& operator[](int index) override
    {
        return items[CheckedIndex(index)];
    }

    /// The elements in one piece; a null pointer may stand for no elements.
    const T* Data() const
    {
        return items.data();
    }
    T* Data()
    {
        return items.data();
    }
    const T* begin() const
    {
        return items.data();
    }
    const T* end() const
    {
        return items.data() + items.size();
    }
    T* begin()
    {
        return items.data();
    }
    T* end()
    {
        return items.data() + items.size();
    }

    /// 0
    /// @throws ArgumentOutOfRangeException  dimension is not 0
    int GetLowerBound(int dimension) const
    {
        CheckIndex(dimension, 1);
        return 0;
    }

    /// The last index, -1 for an empty array.
    /// @throws ArgumentOutOfRangeException  dimension is not 0
    int GetUpperBound(int dimension) const
    {
        CheckIndex(dimension, 1);
        return Length() - 1;
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
        return true;
    }
    Object& SyncRoot() override
    {
        return *this;
    }

    bool Contains(const T& item) const override
    {
        return IndexOf(item) >= 0;
    }
    int IndexOf(const T& item) const override
    {
        return Find(item, 0, Length());
    }

    /// The first match among count elements from startIndex on, or -1; -1 for an empty array.
    /// @throws ArgumentOutOfRangeException  the range does not lie in the array
    int IndexOf(const T& item, int startIndex, int count) const
    {
        if (items.empty())
        {
            return -1;
        }
        CheckRange(CheckIndex(startIndex, Length()), count, Length());
        return Find(item, startIndex, count);
    }

    void CopyTo(Array<T>& array, int index) const override
    {
        std::copy(begin(), end(), Collections::Generic::Detail::CopyTarget(array, index, Length()));
    }

    Up<Collections::Generic::IEnumerator<T>> GetEnumerator() const override
    {
        return Up<Collections::Generic::IEnumerator<T>>(new Enumerator(*this));
    }
    /// A walk from the last element to the first.
    Up<Collections::Generic::IEnumerator<T>> GetReverseEnumerator() const
    {
        return Up<Collections::Generic::IEnumerator<T>>(new ReverseEnumerator(*this));
    }

    void Add(const T&) override
    {
        throw InvalidOperationException(ThrowSite);
    }
    void Clear() override
    {
        throw InvalidOperationException(ThrowSite);
    }
    void Insert(int, const T&) override
    {
        throw InvalidOperationException(ThrowSite);
    }
    bool Remove(const T&) override
    {
        throw InvalidOperationException(ThrowSite);
    }
    void RemoveAt(int) override
    {
        throw InvalidOperationException(ThrowSite);
    }

private:
    friend Enumerator;
    friend ReverseEnumerator;

    std::size_t CheckedIndex(int index, CallSite site = CallSite::Here()) const
    {
        const auto position = static_cast<std::size_t>(index);
        if (index < 0 || position >= items.size())
        {
            throw IndexOutOfRangeException(site.file, site.line);
        }
        return position;
    }

    int Find(const T& item, int startIndex, int count) const
    {
        const auto equals = [&item](const T& element) { return Collections::Generic::Detail::AreEqual(element, item); };
        const T* const last = begin() + startIndex + count;
        const T* const found = std::find_if(begin() + startIndex, last, equals);
        return found == last ? -1 : static_cast<int>(found - begin());
    }

    std::uint64_t version = 0;
    std::vector<T> items;
};
} // namespace Tesmo::System
