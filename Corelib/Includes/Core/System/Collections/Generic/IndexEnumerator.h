#pragma once

#include <Core/System/Collections/Generic/IEnumerator.h>
#include <Core/System/InvalidOperationException.h>
#include <Core/System/Object.h>
#include <Core/System/Ref.h>

#include <cstdint>

namespace Tesmo::System::Collections::Generic
{
/// Walk over a collection whose elements have a position. The position is kept as a number, so a walk that outlives a
/// change of its collection reads an element that exists, or throws.
/// @tparam Reversed  from the last element to the first
template <class Collection, class T, bool Reversed = false>
class IndexEnumerator : public Object, public IEnumerator<T>
{
public:
    /// Stands before the first element.
    /// @throws ArgumentNullException  walked is null
    explicit IndexEnumerator(const Collection& walked) : version(NotNull(walked).version), collection(walked) {}

    const T& Current() const override
    {
        const int count = collection->Count();
        if (beforeFirst || position >= count)
        {
            throw InvalidOperationException(ThrowSite);
        }
        return (*collection)[Reversed ? count - 1 - position : position];
    }

    bool MoveNext() override
    {
        if (version != collection->version)
        {
            throw InvalidOperationException(ThrowSite);
        }
        const int count = collection->Count();
        if (position >= count)
        {
            return false;
        }
        if (beforeFirst)
        {
            beforeFirst = false;
        }
        else
        {
            position++;
        }
        return position < count;
    }

    void Reset() override
    {
        version = collection->version;
        beforeFirst = true;
        position = 0;
    }

private:
    std::uint64_t version;
    bool beforeFirst = true;
    Ref<const Collection> collection;
    int position = 0;
};
} // namespace Tesmo::System::Collections::Generic
