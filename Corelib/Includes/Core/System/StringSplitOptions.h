#pragma once

namespace Tesmo::System
{
/// What Split does with empty parts.
enum class StringSplitOptions
{
    None = 0,
    RemoveEmptyEntries = 1,
};
} // namespace Tesmo::System
