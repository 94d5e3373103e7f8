#include <Core/System/Threading/ThreadPriority.h>

namespace Tesmo::System::Threading
{
const EnumDeprecated::NameTable& ThreadPriority::Names() const
{
    static constexpr EnumName names[] = {
        {Lowest, "Lowest"},           {BelowNormal, "BelowNormal"}, {Normal, "Normal"},
        {AboveNormal, "AboveNormal"}, {Highest, "Highest"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Threading
