#include <Core/System/Net/Sockets/Socket.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/IndexOutOfRangeException.h>
#include <Core/System/Net/SocketAddress.h>
#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/ObjectClosedException.h>

#include <Platform/Sockets.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace Tesmo::System::Net::Sockets
{
using Collections::Generic::List;

/// An address as the native layer takes and gives it.
struct Socket::RawAddress
{
    RawAddress() = default;

    explicit RawAddress(const SocketAddress& address) : size(std::min(address.Size(), Platform::SocketAddressSize))
    {
        std::copy_n(address.Data().begin(), size, bytes);
    }

    /// False for fewer bytes than the shortest address has.
    bool IsKnown() const
    {
        return size >= 8;
    }

    unsigned char bytes[Platform::SocketAddressSize];
    int size = 0;
};

namespace
{
constexpr int IPv4Size = 4; // bytes
constexpr int IPv6Size = 16;

/// The value of the linger option as the native layer takes it.
struct RawLinger
{
    std::uint16_t on;
    std::uint16_t seconds;
};

/// @param file, line  of the failing call
void Check(int code, const char* file, int line)
{
    if (code != 0)
    {
        throw SocketException(SocketError(code), file, line);
    }
}

void RequireRange(const Up<unsigned char[]>& buffer, int length, int offset, int size)
{
    NotEmpty(buffer);
    if (offset < 0 || offset >= length || size < 0 || size > length - offset)
    {
        throw IndexOutOfRangeException(ThrowSite);
    }
}

Platform::NativeSocket* Open(const AddressFamily& family, const SocketType& type, const ProtocolType& protocol)
{
    NotNull(family);
    NotNull(type);
    NotNull(protocol);
    Platform::NativeSocket* opened = nullptr;
    Check(Platform::OpenSocket(family.ToInt32(), type.Value(), protocol.Value(), opened), ThrowSite);
    return opened;
}

int Append(std::vector<unsigned char>& raw, const IPAddress& address)
{
    const Array<Byte> bytes = address.GetAddressBytes();
    raw.insert(raw.end(), bytes.begin(), bytes.end());
    return static_cast<int>(raw.size());
}

IPAddress AddressIn(const unsigned char* raw, int size)
{
    return IPAddress(Array<Byte>(std::vector<Byte>(raw, raw + size)));
}

/// The entry of a socket, added if there is none yet.
Platform::SelectEntry& EntryOf(std::vector<Platform::SelectEntry>& entries, Platform::NativeSocket* socket)
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [socket](const Platform::SelectEntry& entry) { return entry.socket == socket; });
    return found != entries.end() ? *found : entries.emplace_back(Platform::SelectEntry{socket, false, false, false});
}
} // namespace

void Socket::Free::operator()(Platform::NativeSocket* socket) const
{
    Platform::FreeSocket(socket);
}

Socket::Socket(const Sockets::AddressFamily& family, const Sockets::SocketType& type,
               const Sockets::ProtocolType& protocol)
    : handle(Open(family, type, protocol)),
      addressFamily(family),
      protocolType(protocol),
      socketType(type)
{
}

Socket::Socket(Platform::NativeSocket* accepted, const Socket& listener)
    : handle(accepted),
      addressFamily(listener.addressFamily),
      protocolType(listener.protocolType),
      socketType(listener.socketType),
      connected(true),
      bound(true)
{
}

Socket::~Socket() = default;

void Socket::Bind(const Sp<EndPoint>& endPoint)
{
    BindWith(Platform::BindSocket, endPoint);
}

void Socket::BindForSending(const Sp<EndPoint>& endPoint)
{
    BindWith(Platform::BindSocketForSending, endPoint);
}

void Socket::BindWith(NativeBind bind, const Sp<EndPoint>& endPoint)
{
    NotEmpty(endPoint);
    RequireOpen();
    RawAddress address(endPoint->Serialize());
    Check(bind(*handle, address.bytes, address.size), ThrowSite);
    Check(Platform::GetSocketAddress(*handle, address.bytes, address.size), ThrowSite);
    localEndPoint = endPoint->Create(SocketAddress(address.bytes, address.size));
    bound = true;
}

int Socket::SendTo(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags,
                   const EndPoint& endPoint)
{
    RequireRange(buffer, length, offset, size);
    NotNull(flags);
    NotNull(endPoint);
    RequireOpen();
    const RawAddress target(endPoint.Serialize());
    int sent = 0;
    Check(Platform::SendSocket(*handle, buffer.Get() + offset, size, flags.Value(), target.bytes, target.size, sent),
          ThrowSite);
    return sent;
}

int Socket::ReceiveFrom(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags,
                        Sp<EndPoint>& endPoint)
{
    RequireRange(buffer, length, offset, size);
    NotNull(flags);
    NotEmpty(endPoint);
    RawAddress sender;
    const int received = ReceiveRaw(buffer, offset, size, flags, sender);
    if (sender.IsKnown())
    {
        endPoint = Sp<EndPoint>(endPoint->Create(SocketAddress(sender.bytes, sender.size)));
    }
    return received;
}

int Socket::ReceiveFrom(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags,
                        IPEndPoint& endPoint)
{
    RequireRange(buffer, length, offset, size);
    NotNull(flags);
    NotNull(endPoint);
    RawAddress sender;
    const int received = ReceiveRaw(buffer, offset, size, flags, sender);
    if (sender.IsKnown())
    {
        endPoint = IPEndPoint(sender.bytes, sender.size);
    }
    return received;
}

int Socket::Send(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags)
{
    RequireRange(buffer, length, offset, size);
    NotNull(flags);
    RequireOpen();
    int sent = 0;
    Check(Platform::SendSocket(*handle, buffer.Get() + offset, size, flags.Value(), nullptr, 0, sent), ThrowSite);
    return sent;
}

int Socket::Receive(const Up<unsigned char[]>& buffer, int length, int offset, int size, const SocketFlags& flags)
{
    RequireRange(buffer, length, offset, size);
    NotNull(flags);
    RawAddress sender;
    return ReceiveRaw(buffer, offset, size, flags, sender);
}

void Socket::Shutdown(const SocketShutdown& how)
{
    NotNull(how);
    RequireOpen();
    Check(Platform::ShutdownSocket(*handle, how.Value()), ThrowSite);
}

void Socket::Close()
{
    connected = false;
    bound = false;
    Platform::CloseSocket(*handle);
}

void Socket::SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, bool value)
{
    SetSocketOption(level, name, value ? -1 : 0); // all bits set, not 1: required
}

void Socket::SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, int value)
{
    SetRawOption(level, name, &value, sizeof(value));
}

void Socket::SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, const Array<Byte>& value)
{
    NotNull(value);
    const std::vector<unsigned char> raw(value.begin(), value.end());
    SetRawOption(level, name, raw.data(), value.Length());
}

void Socket::SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, const LingerOption& value)
{
    NotNull(value);
    const RawLinger raw = {static_cast<std::uint16_t>(value.Enabled() ? 1 : 0),
                           static_cast<std::uint16_t>(value.LingerTime())};
    SetRawOption(level, name, &raw, sizeof(raw));
}

void Socket::SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, const MulticastOption& value)
{
    NotNull(value);
    std::vector<unsigned char> raw;
    Append(raw, value.Group());
    const int size = Append(raw, value.LocalAddress());
    SetRawOption(level, name, raw.data(), size);
}

void Socket::SetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name,
                             const IPv6MulticastOption& value)
{
    NotNull(value);
    std::vector<unsigned char> raw;
    const int size = Append(raw, value.Group());
    const auto index = static_cast<std::uint32_t>(value.InterfaceIndex());
    const auto* const indexBytes = reinterpret_cast<const unsigned char*>(&index);
    raw.insert(raw.end(), indexBytes, indexBytes + sizeof(index));
    SetRawOption(level, name, raw.data(), size + static_cast<int>(sizeof(index)));
}

void Socket::GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, bool& value)
{
    int number = 0;
    GetSocketOption(level, name, number);
    value = number != 0;
}

void Socket::GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, int& value)
{
    int number = 0;
    GetRawOption(level, name, &number, sizeof(number));
    value = number;
}

void Socket::GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, Array<Byte>& value)
{
    NotNull(value);
    std::vector<unsigned char> raw(static_cast<std::size_t>(value.Length()));
    GetRawOption(level, name, raw.data(), value.Length());
    std::copy(raw.begin(), raw.end(), value.begin());
}

void Socket::GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, LingerOption& value)
{
    RawLinger raw = {};
    GetRawOption(level, name, &raw, sizeof(raw));
    value = LingerOption(raw.on != 0, raw.seconds);
}

void Socket::GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, MulticastOption& value)
{
    unsigned char raw[2 * IPv4Size] = {};
    GetRawOption(level, name, raw, sizeof(raw));
    value = MulticastOption(AddressIn(raw, IPv4Size), AddressIn(raw + IPv4Size, IPv4Size));
}

void Socket::GetSocketOption(const SocketOptionLevel& level, const SocketOptionName& name, IPv6MulticastOption& value)
{
    std::uint32_t index = 0;
    unsigned char raw[IPv6Size + sizeof(index)] = {};
    GetRawOption(level, name, raw, sizeof(raw));
    std::memcpy(&index, raw + IPv6Size, sizeof(index));
    value = IPv6MulticastOption(AddressIn(raw, IPv6Size), index);
}

bool Socket::GetBlocking() const
{
    return !nonBlocking;
}

void Socket::SetBlocking(bool blocking)
{
    RequireOpen();
    Check(Platform::SetSocketBlocking(*handle, blocking), ThrowSite);
    nonBlocking = !blocking;
}

int Socket::GetAvailable() const
{
    RequireOpen();
    int bytes = 0;
    Check(Platform::GetSocketAvailable(*handle, bytes), ThrowSite);
    return bytes;
}

void Socket::Listen(int backlog)
{
    RequireOpen();
    if (!bound)
    {
        throw SocketException(SocketError::NotConnected, ThrowSite);
    }
    Check(Platform::ListenSocket(*handle, backlog), ThrowSite);
    listening = true;
}

Sp<Socket> Socket::Accept()
{
    RequireOpen();
    Platform::NativeSocket* accepted = nullptr;
    RawAddress peer;
    Check(Platform::AcceptSocket(*handle, accepted, peer.bytes, peer.size), ThrowSite);
    const Sp<Socket> connection(new Socket(accepted, *this));
    if (peer.IsKnown() && localEndPoint.Get() != nullptr)
    {
        connection->remoteEndPoint = localEndPoint->Create(SocketAddress(peer.bytes, peer.size));
    }
    return connection;
}

void Socket::Connect(const EndPoint& endPoint)
{
    NotNull(endPoint);
    RequireOpen();
    const SocketAddress peer = endPoint.Serialize();
    const RawAddress address(peer);
    Check(Platform::ConnectSocket(*handle, address.bytes, address.size), ThrowSite);
    remoteEndPoint = endPoint.Create(peer);
    connected = true;
}

void Socket::Disconnect()
{
    RequireOpen();
    const unsigned char nobody[16] = {};
    Check(Platform::ConnectSocket(*handle, nobody, sizeof(nobody)), ThrowSite);
    connected = false;
    bound = false;
}

void Socket::Select(List<Sp<Socket>>& checkRead, List<Sp<Socket>>& checkWrite, List<Sp<Socket>>& checkError,
                    int microseconds)
{
    if (std::max({checkRead.Count(), checkWrite.Count(), checkError.Count()}) == 0)
    {
        throw ArgumentNullException(ThrowSite);
    }
    struct Check
    {
        List<Sp<Socket>>& sockets;
        bool Platform::SelectEntry::*condition;
    };
    const Check checks[] = {{checkRead, &Platform::SelectEntry::read},
                            {checkWrite, &Platform::SelectEntry::write},
                            {checkError, &Platform::SelectEntry::error}};
    std::vector<Platform::SelectEntry> entries;
    for (const Check& check : checks)
    {
        for (int i = 0; i < check.sockets.Count(); ++i)
        {
            check.sockets[i]->RequireOpen();
            EntryOf(entries, check.sockets[i]->handle.get()).*check.condition = true;
        }
    }
    Sockets::Check(Platform::SelectSockets(entries.data(), static_cast<int>(entries.size()), microseconds), ThrowSite);
    for (const Check& check : checks)
    {
        for (int i = check.sockets.Count() - 1; i >= 0; --i)
        {
            if (!(EntryOf(entries, check.sockets[i]->handle.get()).*check.condition))
            {
                check.sockets.RemoveAt(i);
            }
        }
    }
}

bool Socket::IsConnected() const
{
    return connected;
}

bool Socket::IsBound() const
{
    return bound;
}

Sockets::AddressFamily Socket::AddressFamily() const
{
    return addressFamily;
}

Sockets::SocketType Socket::SocketType() const
{
    return socketType;
}

Sockets::ProtocolType Socket::ProtocolType() const
{
    return protocolType;
}

const EndPoint& Socket::LocalEndPoint() const
{
    return localEndPoint.Get() != nullptr ? *localEndPoint : static_cast<const EndPoint&>(null);
}

const EndPoint& Socket::RemoteEndPoint() const
{
    return remoteEndPoint.Get() != nullptr ? *remoteEndPoint : static_cast<const EndPoint&>(null);
}

void Socket::RequireOpen() const
{
    if (Platform::IsSocketClosed(*handle))
    {
        throw ObjectClosedException(ThrowSite);
    }
}

int Socket::ReceiveRaw(const Up<unsigned char[]>& buffer, int offset, int size, const SocketFlags& flags,
                       RawAddress& sender)
{
    RequireOpen();
    int received = 0;
    Check(Platform::ReceiveSocket(*handle, buffer.Get() + offset, size, flags.Value(), sender.bytes, sender.size,
                                  received),
          ThrowSite);
    return received;
}

void Socket::SetRawOption(const SocketOptionLevel& level, const SocketOptionName& name, const void* value, int size)
{
    NotNull(level);
    NotNull(name);
    RequireOpen();
    Check(Platform::SetSocketOption(*handle, level.Value(), name.Value(), value, size), ThrowSite);
}

void Socket::GetRawOption(const SocketOptionLevel& level, const SocketOptionName& name, void* value, int size)
{
    NotNull(level);
    NotNull(name);
    RequireOpen();
    Check(Platform::GetSocketOption(*handle, level.Value(), name.Value(), value, size), ThrowSite);
}
} // namespace Tesmo::System::Net::Sockets
