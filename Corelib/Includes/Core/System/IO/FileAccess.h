#pragma once

/// What a file is opened for. A plain number.
namespace Tesmo::System::IO::FileAccess
{
constexpr int Read = 0;
constexpr int Write = 1;
constexpr int ReadWrite = 2;
} // namespace Tesmo::System::IO::FileAccess
