#pragma once

#include <Platform/Sockets.h>

#include <Tests/Support/CoreTest.h>

namespace Tesmo::Platform
{
/// A raw datagram socket on an address of its own, for the tests of the native layer.
class NativeTestSocket
{
public:
    using Address = unsigned char[SocketAddressSize];
    using Bind = int (*)(NativeSocket& socket, const unsigned char* address, int addressSize);

    /// @param lastOctet   of 127.0.0.x, or 0 for 0.0.0.0
    /// @param wantedPort  one to share with a socket that allows it, or 0 for a free one
    explicit NativeTestSocket(int lastOctet = 1, int wantedPort = 0, Bind bind = BindSocket)
    {
        EXPECT_EQ(0, OpenSocket(FamilyInterNetwork, TypeDatagram, 17, socket));
        EXPECT_EQ(0, SetOption(4, wantedPort == 0 ? 0 : -1)); // SO_REUSEADDR
        Address address = {FamilyInterNetwork};
        address[2] = static_cast<unsigned char>(wantedPort >> 8);
        address[3] = static_cast<unsigned char>(wantedPort);
        address[4] = lastOctet == 0 ? 0 : 127;
        address[7] = static_cast<unsigned char>(lastOctet);
        EXPECT_EQ(0, bind(*socket, address, 16));
        int size = 0;
        EXPECT_EQ(0, GetSocketAddress(*socket, local, size));
        EXPECT_EQ(16, size);
    }

    ~NativeTestSocket()
    {
        FreeSocket(socket);
    }

    NativeTestSocket(const NativeTestSocket&) = delete;
    NativeTestSocket& operator=(const NativeTestSocket&) = delete;

    int Port() const
    {
        return local[2] << 8 | local[3];
    }

    int SendTo(const Address& target, const std::string& bytes)
    {
        int sent = -1;
        const int code = SendSocket(*socket, reinterpret_cast<const unsigned char*>(bytes.data()),
                                    static_cast<int>(bytes.size()), 0, target, 16, sent);
        EXPECT_TRUE(code != 0 || sent == static_cast<int>(bytes.size()));
        return code;
    }

    /// @param room  buffer in bytes
    int Receive(int room = 64)
    {
        std::string buffer(static_cast<std::size_t>(room), '\0');
        int received = -1;
        const int code = ReceiveSocket(*socket, reinterpret_cast<unsigned char*>(buffer.data()), room, 0, sender,
                                       senderSize, received);
        text = code == 0 ? buffer.substr(0, static_cast<std::size_t>(received)) : std::string();
        return code;
    }

    /// True for a select, for reading or for errors, that finds nothing and takes all of its time.
    bool WaitsInVain(bool read)
    {
        constexpr std::chrono::milliseconds wait(200);
        const auto start = std::chrono::steady_clock::now();
        SelectEntry entry = {socket, read, false, !read};
        EXPECT_EQ(0, SelectSockets(&entry, 1, std::chrono::microseconds(wait).count()));
        EXPECT_FALSE(entry.read || entry.write || entry.error);
        return std::chrono::steady_clock::now() - start >= wait;
    }

    int SetOption(int name, int value)
    {
        return SetSocketOption(*socket, 65535, name, &value, sizeof(value));
    }

    NativeSocket* socket = nullptr;
    Address local = {};
    Address sender = {};
    int senderSize = -1;
    std::string text;
};
} // namespace Tesmo::Platform
