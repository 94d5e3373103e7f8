#pragma once

#include <Core/System/Fp.h>
#include <Core/System/Object.h>

#include <algorithm>
#include <concepts>
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
    Delegate() = default;
    Delegate(const Null&) {}

    /// Binds a plain or static function; a null pointer gives an empty delegate.
    Delegate(R (*function)(Args...))
    {
        if (function != nullptr)
        {
            records.push_back(Record::Bind(function));
        }
    }

    /// Binds an object and one of its operations.
    template <class Base, std::derived_from<Base> T>
    Delegate(T& target, R (Base::*method)(Args...)) : records{Record::Bind(static_cast<Base*>(&target), method)}
    {
    }

    template <class Base, std::derived_from<Base> T>
    Delegate(const T& target, R (Base::*method)(Args...) const)
        : records{Record::Bind(static_cast<const Base*>(&target), method)}
    {
    }

    Delegate(const Delegate&) = default;
    Delegate& operator=(const Delegate&) = default;

    /// Calls every function of the list in order; the last result counts. An empty list gives a default value.
    R Invoke(Args... args) const
    {
        if constexpr (std::is_void_v<R>)
        {
            for (const Record& record : records)
            {
                record.invoker(record.target, record.method, args...);
            }
        }
        else
        {
            R result{};
            for (const Record& record : records)
            {
                result = record.invoker(record.target, record.method, args...);
            }
            return result;
        }
    }

    /// Appends the functions of other.
    Delegate& operator+=(const Delegate& other)
    {
        const std::vector<Record> added = other.records; // other may be this list
        records.insert(records.end(), added.begin(), added.end());
        return *this;
    }

    /// Takes out the last run of functions that equals the list of other; without such a run nothing happens.
    Delegate& operator-=(const Delegate& other)
    {
        const auto run = std::find_end(records.begin(), records.end(), other.records.begin(), other.records.end());
        if (run != records.end())
        {
            records.erase(run, run + static_cast<std::ptrdiff_t>(other.records.size()));
        }
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
        return delegate != nullptr && records == delegate->records;
    }

    friend bool operator==(const Delegate& delegate, const Null&)
    {
        return delegate.records.empty();
    }

private:
    using Record = Fp<R, Args...>;

    std::vector<Record> records;
};

/// A function without a result.
template <class... Args>
using Action = Delegate<void, Args...>;

/// A function with a result.
template <class R, class... Args>
using Func = Delegate<R, Args...>;
} // namespace Tesmo::System
