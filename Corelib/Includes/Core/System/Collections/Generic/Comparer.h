#pragma once

#include <Core/System/Collections/Generic/IComparer.h>
#include <Core/System/IComparable.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>

#include <concepts>

namespace Tesmo::System::Collections::Generic
{
/// The natural order of a type: IComparable, else the operator <. Null sorts first.
template <class T>
class Comparer : public Object, public IComparer<T>
{
public:
    /// The shared instance.
    static const Sp<IComparer<T>>& Default()
    {
        static const Sp<IComparer<T>> instance(new Comparer);
        return instance;
    }

    int Compare(const T& left, const T& right) const override
    {
        if (IsNull(left) || IsNull(right))
        {
            return static_cast<int>(IsNull(right)) - static_cast<int>(IsNull(left));
        }
        if constexpr (std::derived_from<T, IComparable>)
        {
            return left.CompareTo(right);
        }
        else
        {
            return static_cast<int>(right < left) - static_cast<int>(left < right);
        }
    }
};
} // namespace Tesmo::System::Collections::Generic
