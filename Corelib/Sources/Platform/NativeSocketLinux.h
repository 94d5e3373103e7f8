#pragma once

#include "SocketCall.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstring>

namespace Tesmo::Platform
{
/// A socket for sending alone is bound to this group address. It is never assigned (RFC 1112, section 4), so nothing is
/// sent to it.
constexpr in_addr_t Nowhere = 0xE0000000; // 224.0.0.0

/// A socket of Linux behind the handle: see Sockets.h for the contract.
struct NativeSocket
{
    NativeSocket(int openDescriptor, int nativeFamily, bool isDatagram)
        : descriptor(openDescriptor),
          family(nativeFamily),
          datagram(isDatagram)
    {
    }

    void Release()
    {
        ::close(descriptor);
    }

    const int descriptor;
    const int family; ///< of Linux
    const bool datagram;
    std::atomic<bool> blocking = true;
    /// A report of a closed port was read; the next receive fails because of it.
    std::atomic<bool> portUnreachable = false;
    /// The socket has a local port. While this is false, the kernel is asked.
    std::atomic<bool> hasPort = false;
    /// The address that a socket bound to Nowhere sends from.
    std::atomic<in_addr_t> source = INADDR_ANY;
    SocketState state;
};

/// Empties the queue of error reports, which would fill the receive buffer, and remembers whether one told of a closed
/// port. Others are dropped: Windows tells a datagram socket of no unreachable host or network.
/// @returns true when there was a report
bool DrainReports(NativeSocket& socket);

using Call = SocketCall<NativeSocket>;

/// A raw address of Windows in the form of Linux; only the number of the IPv6 family differs.
class NativeAddress
{
public:
    NativeAddress() = default;

    /// @param address  may be a null pointer: the address is then empty
    NativeAddress(const unsigned char* address, int addressSize)
        : length(address == nullptr ? 0 : static_cast<socklen_t>(addressSize))
    {
        if (IsUsable() && address != nullptr)
        {
            std::memcpy(&storage, address, length);
            const int number = address[0] | address[1] << 8;
            storage.ss_family = static_cast<sa_family_t>(number == FamilyInterNetworkV6 ? AF_INET6 : number);
        }
    }

    bool IsUsable() const
    {
        return length == 0 || (length >= sizeof(sa_family_t) && length <= sizeof(storage));
    }

    const sockaddr* Get() const
    {
        return length == 0 ? nullptr : reinterpret_cast<const sockaddr*>(&storage);
    }

    /// The buffer that the kernel fills; length is its size in bytes.
    sockaddr* Receiver()
    {
        length = sizeof(storage);
        return reinterpret_cast<sockaddr*>(&storage);
    }

    void Give(unsigned char (&address)[SocketAddressSize], int& addressSize) const
    {
        addressSize = static_cast<int>(std::min<std::size_t>(length, SocketAddressSize));
        std::memcpy(address, &storage, static_cast<std::size_t>(addressSize));
        if (addressSize >= 2)
        {
            const int number = storage.ss_family == AF_INET6 ? FamilyInterNetworkV6 : storage.ss_family;
            address[0] = static_cast<unsigned char>(number);
            address[1] = static_cast<unsigned char>(number >> 8);
        }
    }

    bool IsIPv4() const
    {
        return storage.ss_family == AF_INET;
    }

    in_addr IPv4() const
    {
        return reinterpret_cast<const sockaddr_in*>(&storage)->sin_addr;
    }

    void IPv4(in_addr_t address)
    {
        reinterpret_cast<sockaddr_in*>(&storage)->sin_addr.s_addr = address;
    }

    bool HasPort() const
    {
        return reinterpret_cast<const sockaddr_in*>(&storage)->sin_port != 0; // the port of IPv6 has the same offset
    }

    socklen_t length = 0;

private:
    sockaddr_storage storage = {};
};

/// Reads the address that the socket is bound to, or sends from.
/// @returns 0 or an errno
int ReadLocalAddress(const NativeSocket& socket, NativeAddress& local);
} // namespace Tesmo::Platform
