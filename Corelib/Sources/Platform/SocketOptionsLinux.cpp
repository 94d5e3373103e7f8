#include "NativeSocketLinux.h"
#include "SocketErrorsLinux.h"

#include <netinet/tcp.h>
#include <sys/time.h>

#include <cerrno>
#include <cstdint>
#include <iterator>

namespace Tesmo::Platform
{
namespace
{
/// How the value of a Windows option becomes the value of the Linux option, and back.
enum class OptionValue
{
    Plain,        ///< the same bytes
    Buffer,       ///< a size that Linux reports doubled (socket(7), SO_RCVBUF)
    Milliseconds, ///< a 32-bit number of milliseconds; a timeval on Linux
    Linger,       ///< two 16-bit numbers, on and seconds; two 32-bit ones on Linux
    Error,        ///< an error number, read only
    DontFragment  ///< true or false; a mode of path MTU discovery on Linux
};

struct SocketOption
{
    int level;
    int name;
    OptionValue value;
};

struct OptionRow
{
    int level; ///< of Windows, like name
    int name;
    SocketOption option;
};

constexpr int Socket = 65535;
constexpr int IPv4 = 0;
constexpr int IPv6 = 41;
constexpr int Tcp = 6;

constexpr OptionRow options[] = {
    {Socket, 1, {SOL_SOCKET, SO_DEBUG, OptionValue::Plain}},
    {Socket, 2, {SOL_SOCKET, SO_ACCEPTCONN, OptionValue::Plain}},
    {Socket, 4, {SOL_SOCKET, SO_REUSEADDR, OptionValue::Plain}},
    {Socket, 8, {SOL_SOCKET, SO_KEEPALIVE, OptionValue::Plain}},
    {Socket, 16, {SOL_SOCKET, SO_DONTROUTE, OptionValue::Plain}},
    {Socket, 32, {SOL_SOCKET, SO_BROADCAST, OptionValue::Plain}},
    {Socket, 128, {SOL_SOCKET, SO_LINGER, OptionValue::Linger}},
    {Socket, 256, {SOL_SOCKET, SO_OOBINLINE, OptionValue::Plain}},
    {Socket, 4097, {SOL_SOCKET, SO_SNDBUF, OptionValue::Buffer}},
    {Socket, 4098, {SOL_SOCKET, SO_RCVBUF, OptionValue::Buffer}},
    {Socket, 4101, {SOL_SOCKET, SO_SNDTIMEO, OptionValue::Milliseconds}},
    {Socket, 4102, {SOL_SOCKET, SO_RCVTIMEO, OptionValue::Milliseconds}},
    {Socket, 4103, {SOL_SOCKET, SO_ERROR, OptionValue::Error}},
    {Socket, 4104, {SOL_SOCKET, SO_TYPE, OptionValue::Plain}},
    {IPv4, 3, {IPPROTO_IP, IP_TOS, OptionValue::Plain}},
    {IPv4, 4, {IPPROTO_IP, IP_TTL, OptionValue::Plain}},
    {IPv4, 9, {IPPROTO_IP, IP_MULTICAST_IF, OptionValue::Plain}},
    {IPv4, 10, {IPPROTO_IP, IP_MULTICAST_TTL, OptionValue::Plain}},
    {IPv4, 11, {IPPROTO_IP, IP_MULTICAST_LOOP, OptionValue::Plain}},
    {IPv4, 12, {IPPROTO_IP, IP_ADD_MEMBERSHIP, OptionValue::Plain}},
    {IPv4, 13, {IPPROTO_IP, IP_DROP_MEMBERSHIP, OptionValue::Plain}},
    {IPv4, 14, {IPPROTO_IP, IP_MTU_DISCOVER, OptionValue::DontFragment}},
    {IPv6, 4, {IPPROTO_IPV6, IPV6_UNICAST_HOPS, OptionValue::Plain}},
    {IPv6, 9, {IPPROTO_IPV6, IPV6_MULTICAST_IF, OptionValue::Plain}},
    {IPv6, 10, {IPPROTO_IPV6, IPV6_MULTICAST_HOPS, OptionValue::Plain}},
    {IPv6, 11, {IPPROTO_IPV6, IPV6_MULTICAST_LOOP, OptionValue::Plain}},
    {IPv6, 12, {IPPROTO_IPV6, IPV6_ADD_MEMBERSHIP, OptionValue::Plain}},
    {IPv6, 13, {IPPROTO_IPV6, IPV6_DROP_MEMBERSHIP, OptionValue::Plain}},
    {IPv6, 27, {IPPROTO_IPV6, IPV6_V6ONLY, OptionValue::Plain}},
    {Tcp, 1, {IPPROTO_TCP, TCP_NODELAY, OptionValue::Plain}},
};
/// The Linux option that stands for a Windows option, or a null pointer.
const SocketOption* FindSocketOption(int level, int name)
{
    const auto* row = std::find_if(std::begin(options), std::end(options),
                                   [level, name](const OptionRow& candidate)
                                   { return candidate.level == level && candidate.name == name; });
    return row == std::end(options) ? nullptr : &row->option;
}

/// An option's value as Linux takes it.
union NativeValue
{
    int number;
    linger lingering;
    timeval time;
    unsigned char bytes[64];
};

struct WindowsLinger
{
    std::uint16_t on;
    std::uint16_t seconds;
};

/// The smallest value that Windows accepts for an option that is not Plain, in bytes.
constexpr int ConvertedSize = 4;

socklen_t ToNativeValue(OptionValue kind, const void* value, int size, NativeValue& native)
{
    std::int32_t number = 0;
    WindowsLinger lingering = {};
    if (kind != OptionValue::Plain)
    {
        std::memcpy(&number, value, ConvertedSize);
        std::memcpy(&lingering, value, ConvertedSize);
    }
    switch (kind)
    {
    case OptionValue::Linger:
        native.lingering = {lingering.on, lingering.seconds};
        return sizeof(native.lingering);
    case OptionValue::Milliseconds:
        number = std::max(number, 0); // 0 is no limit on both; a negative value is as good as none on Windows
        native.time = {number / 1000, number % 1000 * 1000};
        return sizeof(native.time);
    case OptionValue::DontFragment:
        native.number = number != 0 ? IP_PMTUDISC_DO : IP_PMTUDISC_DONT;
        return sizeof(native.number);
    case OptionValue::Buffer:
    case OptionValue::Error:
        native.number = number;
        return sizeof(native.number);
    case OptionValue::Plain:
        break;
    }
    std::memcpy(&native, value, static_cast<std::size_t>(size));
    return static_cast<socklen_t>(size);
}

/// @returns bytes filled in value, which has room for ConvertedSize or, when Plain, for length
int FromNativeValue(OptionValue kind, const NativeValue& native, socklen_t length, void* value)
{
    std::int32_t number = 0;
    switch (kind)
    {
    case OptionValue::Linger:
    {
        const WindowsLinger lingering = {static_cast<std::uint16_t>(native.lingering.l_onoff),
                                         static_cast<std::uint16_t>(native.lingering.l_linger)};
        std::memcpy(value, &lingering, sizeof(lingering));
        return sizeof(lingering);
    }
    case OptionValue::Plain:
        std::memcpy(value, &native, length);
        return static_cast<int>(length);
    case OptionValue::Milliseconds:
        number = static_cast<std::int32_t>(native.time.tv_sec * 1000 + native.time.tv_usec / 1000);
        break;
    case OptionValue::Buffer:
        number = native.number / 2;
        break;
    case OptionValue::DontFragment:
        number = native.number == IP_PMTUDISC_DO ? 1 : 0;
        break;
    case OptionValue::Error:
        number = native.number == 0 ? 0 : SocketErrorOf(native.number);
        break;
    }
    std::memcpy(value, &number, ConvertedSize);
    return ConvertedSize;
}

bool IsUsableSize(const SocketOption& option, int size)
{
    return size > 0 && size <= static_cast<int>(sizeof(NativeValue)) &&
           (option.value == OptionValue::Plain || size >= ConvertedSize);
}
} // namespace

int SetSocketOption(NativeSocket& socket, int level, int name, const void* value, int size)
{
    const Call call(socket);
    const SocketOption* const option = FindSocketOption(level, name);
    if (call.Refused() || option == nullptr)
    {
        return call.Refused() ? SocketNotSocket : SocketProtocolOption;
    }
    if (!IsUsableSize(*option, size))
    {
        return SocketFault;
    }
    NativeValue native = {};
    const socklen_t length = ToNativeValue(option->value, value, size, native);
    return ::setsockopt(socket.descriptor, option->level, option->name, &native, length) == 0 ? 0
                                                                                              : SocketErrorOf(errno);
}

int GetSocketOption(NativeSocket& socket, int level, int name, void* value, int& size)
{
    const Call call(socket);
    const SocketOption* const option = FindSocketOption(level, name);
    if (call.Refused() || option == nullptr)
    {
        return call.Refused() ? SocketNotSocket : SocketProtocolOption;
    }
    if (!IsUsableSize(*option, size))
    {
        return SocketFault;
    }
    NativeValue native = {};
    socklen_t length = option->value == OptionValue::Plain ? static_cast<socklen_t>(size) : sizeof(native);
    if (::getsockopt(socket.descriptor, option->level, option->name, &native, &length) != 0)
    {
        return SocketErrorOf(errno);
    }
    size = FromNativeValue(option->value, native, length, value);
    return 0;
}
} // namespace Tesmo::Platform
