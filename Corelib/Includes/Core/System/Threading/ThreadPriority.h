#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::Threading
{
/// How a thread is scheduled against the others.
class ThreadPriority : public EnumDeprecated
{
public:
    enum Constant
    {
        Lowest = 0,
        BelowNormal = 1,
        Normal = 2,
        AboveNormal = 3,
        Highest = 4,
    };

    /// A number that no constant has is kept, and prints in decimal.
    ThreadPriority(Constant constant) : EnumDeprecated(constant) {}
    explicit ThreadPriority(int number) : EnumDeprecated(number) {}

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::Threading
