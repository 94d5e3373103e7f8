#pragma once

#include <Core/System/Sp.h>

namespace Zelkor::Discovery
{
/// The argument, once it is known that there is one: for constructors that can't do without.
/// @throws std::exception  argument is empty or the null reference
template <class T>
const Tesmo::Sp<T>& Required(const Tesmo::Sp<T>& argument)
{
    const Tesmo::Sp<T> held(argument);
    static_cast<void>(*held);
    return argument;
}
} // namespace Zelkor::Discovery
