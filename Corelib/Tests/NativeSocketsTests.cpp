#include <Tests/Support/NativeTestSocket.h>

#include <latch>

namespace Tesmo::Platform
{
namespace
{
/// Receives on a thread of its own while end runs on this one, and gives the code that the receive ended with.
template <class End>
int CodeOfReceiveEndedBy(NativeTestSocket& socket, End end)
{
    std::latch started(2);
    auto receive = std::async(std::launch::async, [&] { return started.arrive_and_wait(), socket.Receive(); });
    started.arrive_and_wait();
    end();
    if (receive.wait_for(std::chrono::seconds(20)) != std::future_status::ready)
    {
        ADD_FAILURE() << "the receive is stuck";
        socket.SendTo(socket.local, "wake up");
    }
    return receive.get();
}
} // namespace

TEST(NativeSocketsTests, ShutdownAndCloseWakeABlockedReceive)
{
    for (int round = 0; round < 200; ++round)
    {
        NativeTestSocket one;
        NativeTestSocket two;
        int shutDown = -1;
        ASSERT_EQ(SocketShutDown, CodeOfReceiveEndedBy(one, [&] { shutDown = ShutdownSocket(*one.socket, 2); }));
        ASSERT_EQ(0, shutDown);
        two.SendTo(one.local, "the kernel hands it out all the same");
        ASSERT_EQ(SocketShutDown, one.Receive());
        ASSERT_EQ(SocketShutDown, one.SendTo(one.local, "late"));

        const int code = CodeOfReceiveEndedBy(two, [&] { CloseSocket(*two.socket); });
        ASSERT_TRUE(code == SocketInterrupted || code == SocketNotSocket) << code;
        ASSERT_EQ(SocketNotSocket, two.Receive());
        ASSERT_EQ(SocketNotSocket, two.SendTo(one.local, "late"));
        ASSERT_EQ(SocketNotSocket, ShutdownSocket(*two.socket, 2));
        CloseSocket(*two.socket);
    }
}

TEST(NativeSocketsTests, CloseAgainstManyReceivesHarmsNoSocketThatTakesTheNumberOver)
{
    for (int round = 0; round < 200; ++round)
    {
        NativeTestSocket old;
        std::latch started(3);
        const auto receiveUntilClosed = [&]
        {
            unsigned char buffer[16];
            NativeTestSocket::Address sender;
            int size = 0;
            int code = 0;
            started.arrive_and_wait();
            while (code == 0)
            {
                code = ReceiveSocket(*old.socket, buffer, sizeof(buffer), 0, sender, size, size);
            }
            EXPECT_TRUE(code == SocketInterrupted || code == SocketNotSocket) << code;
        };
        const std::jthread receivers[] = {std::jthread(receiveUntilClosed), std::jthread(receiveUntilClosed)};
        started.arrive_and_wait();
        old.SendTo(old.local, "one");
        CloseSocket(*old.socket);

        NativeTestSocket next;
        ASSERT_EQ(0, next.SendTo(next.local, "mine"));
        ASSERT_EQ(0, next.Receive());
        ASSERT_EQ("mine", next.text);
    }
}

TEST(NativeSocketsTests, AnEmptyDatagramIsOneAndALongerOneThanTheBufferIsLostAndSaysSo)
{
    NativeTestSocket receiver;
    NativeTestSocket sender;
    ASSERT_EQ(0, sender.SendTo(receiver.local, ""));
    ASSERT_EQ(0, sender.SendTo(receiver.local, std::string(65, 'x')));
    ASSERT_EQ(0, sender.SendTo(receiver.local, std::string(64, 'y')));

    ASSERT_EQ(0, receiver.Receive());
    EXPECT_EQ("", receiver.text);
    EXPECT_EQ(16, receiver.senderSize);
    EXPECT_EQ(sender.Port(), receiver.sender[2] << 8 | receiver.sender[3]);
    EXPECT_EQ(SocketMessageSize, receiver.Receive(64));
    EXPECT_EQ(0, receiver.Receive(64));
    EXPECT_EQ(std::string(64, 'y'), receiver.text);
    EXPECT_EQ(SocketMessageSize, sender.SendTo(receiver.local, std::string(65508, 'z')));
}

TEST(NativeSocketsTests, OptionsKeepTheirWindowsNumbersAndValues)
{
    // winsock2.h: SO_REUSEADDR, SO_BROADCAST, SO_RCVBUF, SO_RCVTIMEO
    using Row = std::tuple<int, int, int>;
    NativeTestSocket one;
    for (const auto& [name, written, readBack] :
         {Row{4, -1, 1}, Row{32, -1, 1}, Row{32, 0, 0}, Row{4098, 65536, 65536}, Row{4102, 1500, 1500}})
    {
        SCOPED_TRACE(name);
        ASSERT_EQ(0, one.SetOption(name, written));
        int value = -2;
        int size = sizeof(value);
        ASSERT_EQ(0, GetSocketOption(*one.socket, 65535, name, &value, size));
        EXPECT_EQ(readBack, value);
    }
    int failure = -1;
    int size = sizeof(failure);
    EXPECT_EQ(0, GetSocketOption(*one.socket, 65535, 4103, &failure, size)); // SO_ERROR
    EXPECT_EQ(0, failure);
    size = 1;
    EXPECT_EQ(SocketFault, GetSocketOption(*one.socket, 65535, 4098, &failure, size));
    EXPECT_EQ(SocketFault, SetSocketOption(*one.socket, 65535, 4098, &failure, 1));
    EXPECT_EQ(SocketProtocolOption, one.SetOption(12345, 1));
    EXPECT_EQ(SocketAccessDenied, one.SendTo({2, 0, 1, 1, 255, 255, 255, 255}, "without SO_BROADCAST"));
}

TEST(NativeSocketsTests, ASocketWithoutAPortReceivesNothing)
{
    NativeSocket* socket = nullptr;
    NativeTestSocket::Address address = {};
    int size = 0;
    int received = 0;
    unsigned char byte = 0;
    const int milliseconds = 10;
    ASSERT_EQ(0, OpenSocket(FamilyInterNetwork, TypeDatagram, 17, socket));
    ASSERT_EQ(0, SetSocketOption(*socket, 65535, 4102, &milliseconds, sizeof(milliseconds)));
    EXPECT_EQ(SocketInvalidArgument, ReceiveSocket(*socket, &byte, 1, 0, address, size, received));
    const NativeTestSocket other;
    EXPECT_EQ(0, SendSocket(*socket, &byte, 1, 0, other.local, 16, size)); // binds it
    EXPECT_EQ(SocketTimedOut, ReceiveSocket(*socket, &byte, 1, 0, address, size, received));
    EXPECT_EQ(SocketNotSupported, SendSocket(*socket, &byte, 1, 64, other.local, 16, size));
    EXPECT_EQ(SocketNotSupported, ReceiveSocket(*socket, &byte, 1, 1, address, size, received)); // out of band
    FreeSocket(socket);
}

TEST(NativeSocketsTests, NoCallBeginsAfterTheClose)
{
    NativeTestSocket one;
    NativeTestSocket::Address address = {};
    NativeSocket* none = nullptr;
    SelectEntry entry = {one.socket, true, true, true};
    int number = 4;
    CloseSocket(*one.socket);
    const int codes[] = {BindSocket(*one.socket, one.local, 16),
                         BindSocketForSending(*one.socket, one.local, 16),
                         ConnectSocket(*one.socket, one.local, 16),
                         ListenSocket(*one.socket, 1),
                         AcceptSocket(*one.socket, none, address, number),
                         SetSocketBlocking(*one.socket, true),
                         GetSocketAvailable(*one.socket, number),
                         GetSocketAddress(*one.socket, address, number),
                         GetSocketOption(*one.socket, 65535, 32, &number, number),
                         one.SetOption(32, 1),
                         SelectSockets(&entry, 1, 0)};
    for (std::size_t i = 0; i < std::size(codes); ++i)
    {
        EXPECT_EQ(SocketNotSocket, codes[i]) << i;
    }
}
} // namespace Tesmo::Platform
