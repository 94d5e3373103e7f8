#include <Core/System/Net/Sockets/SocketShutdown.h>

namespace Tesmo::System::Net::Sockets
{
const EnumDeprecated::NameTable& SocketShutdown::Names() const
{
    static constexpr EnumName names[] = {
        {Receive, "Receive"},
        {Send, "Send"},
        {Both, "Both"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Net::Sockets
