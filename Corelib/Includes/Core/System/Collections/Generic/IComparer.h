#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System::Collections::Generic
{
/// An order over the values of a type.
template <class T>
class IComparer : public Virtual
{
public:
    /// Below 0 if left sorts before right, 0 if they sort alike, above 0 if left sorts after right.
    virtual int Compare(const T& left, const T& right) const = 0;
};
} // namespace Tesmo::System::Collections::Generic
