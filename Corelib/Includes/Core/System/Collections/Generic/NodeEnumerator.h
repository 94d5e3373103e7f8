#pragma once

#include <Core/System/Collections/Generic/IEnumerator.h>
#include <Core/System/InvalidOperationException.h>
#include <Core/System/Object.h>
#include <Core/System/Ref.h>

#include <cstdint>
#include <optional>
#include <utility>

namespace Tesmo::System::Collections::Generic
{
/// Walk over a collection of linked nodes. The current element is a copy, so it stays readable when its node is gone.
template <class Collection, class T>
class NodeEnumerator : public Object, public IEnumerator<T>
{
public:
    /// Stands before the first element.
    /// @throws ArgumentNullException  walked is null
    explicit NodeEnumerator(const Collection& walked)
        : version(NotNull(walked).version),
          collection(walked),
          position(walked.begin())
    {
    }

    const T& Current() const override
    {
        if (!current.has_value())
        {
            throw InvalidOperationException(ThrowSite);
        }
        return *current;
    }

    bool MoveNext() override
    {
        if (version != collection->version)
        {
            throw InvalidOperationException(ThrowSite);
        }
        if (position == collection->end())
        {
            return false;
        }
        if (!std::exchange(beforeFirst, false))
        {
            ++position;
        }
        current.reset();
        if (position != collection->end())
        {
            current.emplace(Collection::ElementAt(position));
        }
        return current.has_value();
    }

    void Reset() override
    {
        version = collection->version;
        beforeFirst = true;
        position = collection->begin();
        current.reset();
    }

private:
    using Iterator = decltype(std::declval<const Collection&>().begin());

    std::uint64_t version;
    bool beforeFirst = true;
    Ref<const Collection> collection;
    Iterator position;
    std::optional<T> current; ///< empty before the first element and after the last
};
} // namespace Tesmo::System::Collections::Generic
