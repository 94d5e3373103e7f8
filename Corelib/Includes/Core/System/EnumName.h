#pragma once

namespace Tesmo::System
{
/// One line of an enumeration's name table.
struct EnumName
{
    int value;
    const char* name;
};
} // namespace Tesmo::System
