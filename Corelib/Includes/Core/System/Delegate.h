#pragma once

#include <Core/System/Checks.h>
#include <Core/System/Fp.h>
#include <Core/System/Object.h>

#include <algorithm>
#include <concepts>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace Tesmo::System
{
/// An invocation list of bound functions. Copies are independent. A delegate keeps no object alive: whoever subscribes
/// takes care that the object outlives its subscription. One delegate must not be changed by a thread while another
/// thread changes or invokes it.
template <class R, class... Args>
class Delegate : public Object
{
public:
    /// Empty: equals null, and Invoke calls nothing.
    Delegate() = default;
    Delegate(const Null&) {}

    /// Binds a plain or static function; a null pointer gives an empty delegate.
    Delegate(R (*function)(Args...))
    {
        if (function != nullptr)
        {
            Take({Record::Bind(function)});
        }
    }

    /// Binds an object and one of its operations.
    /// @throws ArgumentNullException  target or method is null
    template <class Base, std::derived_from<Base> T>
    Delegate(T& target, R (Base::*method)(Args...), CallSite site = CallSite::Here())
    {
        NotNull(target, site);
        Take({Record::Bind(static_cast<Base*>(&target), NotNull(method, site))});
    }

    /// The same for an object that may only be read.
    template <class Base, std::derived_from<Base> T>
    Delegate(const T& target, R (Base::*method)(Args...) const, CallSite site = CallSite::Here())
    {
        NotNull(target, site);
        Take({Record::Bind(static_cast<const Base*>(&target), NotNull(method, site))});
    }

    Delegate(const Delegate&) = default;
    Delegate& operator=(const Delegate&) = default;
    /// Takes every function out; calls under way go on.
    Delegate& operator=(const Null&)
    {
        records.reset();
        return *this;
    }

    /// Calls every function of the list in order; the last result counts. An empty list gives a default value.
    /// A function may change the list, or destroy the delegate: this call goes on with the list as it began.
    R Invoke(Args... args) const
    {
        const Snapshot walked = records;
        if constexpr (std::is_void_v<R>)
        {
            for (const Record& record : SpanOf(walked))
            {
                record.invoker(record.target, record.method, args...);
            }
        }
        else
        {
            R result{};
            for (const Record& record : SpanOf(walked))
            {
                result = record.invoker(record.target, record.method, args...);
            }
            return result;
        }
    }

    /// Appends the functions of other.
    /// @throws ArgumentNullException  other is null
    Delegate& operator+=(const Delegate& other)
    {
        const Span added = SpanOf(NotNull(other).records);
        List joined = Copy();
        joined.insert(joined.end(), added.begin(), added.end());
        Take(std::move(joined));
        return *this;
    }

    /// Takes out the last run of functions that equals the list of other; without such a run nothing happens.
    /// @throws ArgumentNullException  other is null
    Delegate& operator-=(const Delegate& other)
    {
        const Span removed = SpanOf(NotNull(other).records);
        List rest = Copy();
        const auto run = std::find_end(rest.begin(), rest.end(), removed.begin(), removed.end());
        rest.erase(run, run == rest.end() ? run : run + static_cast<std::ptrdiff_t>(removed.size()));
        Take(std::move(rest));
        return *this;
    }

    /// True for a delegate with the same objects and functions in the same order.
    bool Equals(const Object& other) const override
    {
        if (IsNull(other))
        {
            return false;
        }
        const auto* const delegate = dynamic_cast<const Delegate*>(&other);
        return delegate != nullptr && std::ranges::equal(SpanOf(records), SpanOf(delegate->records));
    }

    friend bool operator==(const Delegate& delegate, const Null&)
    {
        return delegate.records == nullptr;
    }

private:
    using Record = Fp<R, Args...>;
    using List = std::vector<Record>;
    using Span = std::span<const Record>;
    using Snapshot = std::shared_ptr<const List>;

    static Span SpanOf(const Snapshot& snapshot)
    {
        return snapshot == nullptr ? Span() : Span(*snapshot);
    }

    List Copy() const
    {
        const Span current = SpanOf(records);
        return List(current.begin(), current.end());
    }

    void Take(List list)
    {
        records = list.empty() ? nullptr : std::make_shared<const List>(std::move(list));
    }

    Snapshot records; ///< shared with copies and running calls: replaced, never changed; null for an empty list
};

/// A function without a result.
template <class... Args>
using Action = Delegate<void, Args...>;

/// A function with a result.
template <class R, class... Args>
using Func = Delegate<R, Args...>;
} // namespace Tesmo::System
