#include <Core/LogStream/LogStreamLevel.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ThrowSite.h>

namespace Tesmo::System::LogStreams
{
String LogStreamLevel::ToString() const
{
    if (!IsDefined())
    {
        throw ArgumentException(ThrowSite);
    }
    return EnumDeprecated::ToString();
}

const EnumDeprecated::NameTable& LogStreamLevel::Names() const
{
    static constexpr EnumName names[] = {{static_cast<int>(None), "None"},
                                         {static_cast<int>(Critical), "Critical"},
                                         {static_cast<int>(Standard), "Standard"},
                                         {static_cast<int>(Debug), "Debug"}};
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::LogStreams
