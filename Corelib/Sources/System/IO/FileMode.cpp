#include <Core/System/IO/FileMode.h>

namespace Tesmo::System::IO
{
const EnumDeprecated::NameTable& FileMode::Names() const
{
    static constexpr EnumName names[] = {
        {CreateNew, "CreateNew"},       {Create, "Create"},     {Open, "Open"},
        {OpenOrCreate, "OpenOrCreate"}, {Truncate, "Truncate"}, {Append, "Append"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::IO
