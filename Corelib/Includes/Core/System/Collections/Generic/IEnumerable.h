#pragma once

#include <Core/System/Collections/Generic/IEnumerator.h>
#include <Core/System/Up.h>
#include <Core/System/Virtual.h>

namespace Tesmo::System::Collections::Generic
{
/// Anything that can be walked over.
template <class T>
class IEnumerable : public Virtual
{
public:
    /// A new walk, in the collection's own order.
    virtual Up<IEnumerator<T>> GetEnumerator() const = 0;
};
} // namespace Tesmo::System::Collections::Generic
