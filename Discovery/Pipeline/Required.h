#pragma once

#include <Core/System/Sp.h>

namespace Zelkor::Discovery
{
/// The argument itself, for constructors that do nothing without it.
/// @throws std::exception  argument is empty or the null reference
template <class T>
const Tesmo::Sp<T>& Required(const Tesmo::Sp<T>& argument)
{
    const Tesmo::Sp<T> held(argument);
    static_cast<void>(*held);
    return argument;
}
} // namespace Zelkor::Discovery
