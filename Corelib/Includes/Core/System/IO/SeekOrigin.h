#pragma once

namespace Tesmo::System::IO
{
/// What an offset in a stream counts from.
enum class SeekOrigin
{
    Begin = 0,
    Current = 1,
    End = 2,
};
} // namespace Tesmo::System::IO
