#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System::Collections::Generic
{
/// A walk over a collection. It starts before the first element.
template <class T>
class IEnumerator : public Virtual
{
public:
    /// The element that the walk stands on.
    /// @throws InvalidOperationException  before the first MoveNext, or after the end
    virtual const T& Current() const = 0;

    /// Steps to the next element; false at the end.
    /// @throws InvalidOperationException  the collection changed since the walk began
    virtual bool MoveNext() = 0;

    /// Goes back to before the first element of the collection as it stands now.
    virtual void Reset() = 0;
};
} // namespace Tesmo::System::Collections::Generic
