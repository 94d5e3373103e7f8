#include <Core/System/Net/Sockets/SocketFlags.h>

namespace Tesmo::System::Net::Sockets
{
const EnumDeprecated::NameTable& SocketFlags::Names() const
{
    static constexpr EnumName names[] = {
        {None, "None"},
        {OutOfBand, "OutOfBand"},
        {Peek, "Peek"},
        {DontRoute, "DontRoute"},
        {MaxIOVectorLength, "MaxIOVectorLength"},
        {Truncated, "Truncated"},
        {ControlDataTruncated, "ControlDataTruncated"},
        {Broadcast, "Broadcast"},
        {Multicast, "Multicast"},
        {Partial, "Partial"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Net::Sockets
