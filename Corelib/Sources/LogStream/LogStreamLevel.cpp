#include <Core/LogStream/LogStreamLevel.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ThrowSite.h>

namespace Tesmo::System::LogStreams
{
using Collections::Generic::SortedDictionary;

String LogStreamLevel::ToString() const
{
    if (!IsDefined())
    {
        throw ArgumentException(ThrowSite);
    }
    return EnumDeprecated::ToString();
}

const SortedDictionary<int, String>& LogStreamLevel::Names() const
{
    static const SortedDictionary<int, String> names = []
    {
        SortedDictionary<int, String> table;
        table.Add(static_cast<int>(None), "None");
        table.Add(static_cast<int>(Critical), "Critical");
        table.Add(static_cast<int>(Standard), "Standard");
        table.Add(static_cast<int>(Debug), "Debug");
        return table;
    }();
    return names;
}
} // namespace Tesmo::System::LogStreams
