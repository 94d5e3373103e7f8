#pragma once

namespace Tesmo::System
{
/// Declared here for headers that only name it; Core/System/Array.h defines it.
template <class T, int Rank = 1>
class Array;
} // namespace Tesmo::System
