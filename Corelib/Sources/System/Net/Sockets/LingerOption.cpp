#include <Core/System/Net/Sockets/LingerOption.h>

#include <Core/System/ArgumentOutOfRangeException.h>

#include <cstdint>
#include <limits>

namespace Tesmo::System::Net::Sockets
{
namespace
{
int CheckedTime(int seconds)
{
    if (seconds < 0 || seconds > std::numeric_limits<std::uint16_t>::max())
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    return seconds;
}
} // namespace

LingerOption::LingerOption(bool enable, int seconds) : enabled(enable), lingerTime(CheckedTime(seconds)) {}

void LingerOption::LingerTime(int seconds)
{
    lingerTime = CheckedTime(seconds);
}
} // namespace Tesmo::System::Net::Sockets
