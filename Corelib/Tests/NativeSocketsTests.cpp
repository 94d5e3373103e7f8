#include <Tests/Support/NativeTestSocket.h>

namespace Tesmo::Platform
{
namespace
{
/// Receives on a thread of its own while end runs on this one, and gives the code that the receive ended with.
template <class End>
int CodeOfReceiveEndedBy(NativeTestSocket& socket, End end)
{
    std::promise<void> started; // std::latch may miss its wake-up on Win32 (GCC 12)
    auto receive = std::async(std::launch::async, [&] { return started.set_value(), socket.Receive(); });
    started.get_future().wait();
    end();
    if (receive.wait_for(std::chrono::seconds(20)) != std::future_status::ready)
    {
        ADD_FAILURE() << "the receive is stuck";
        socket.SendTo(socket.local, "wake up");
    }
    return receive.get();
}
} // namespace

TEST(NativeSocketsTests, ShutdownAndCloseWakeABlockedReceiveAndHarmNoSocketThatTakesTheNumberOver)
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

        std::optional<NativeTestSocket> next;
        const int code = CodeOfReceiveEndedBy(two, [&] { CloseSocket(*two.socket), next.emplace(); });
        ASSERT_TRUE(code == SocketInterrupted || code == SocketNotSocket) << code;
        ASSERT_EQ(0, next->SendTo(next->local, "mine"));
        ASSERT_EQ(0, next->Receive());
        ASSERT_EQ("mine", next->text);
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
    EXPECT_EQ(SocketMessageSize, receiver.Receive(64));
    EXPECT_EQ(0, receiver.Receive(64));
    EXPECT_EQ(std::string(64, 'y'), receiver.text);
    EXPECT_EQ(SocketMessageSize, sender.SendTo(receiver.local, std::string(65508, 'z')));
    EXPECT_TRUE(receiver.WaitsInVain(true));
}

TEST(NativeSocketsTests, OptionsKeepTheirWindowsNumbersAndValues)
{
    // winsock2.h: SO_REUSEADDR, SO_BROADCAST, SO_RCVBUF, SO_RCVTIMEO
    using Row = std::tuple<int, int, int>;
    NativeTestSocket one;
    const auto valueOrCode = [&](int name, int size)
    {
        int value = -2;
        const int code = GetSocketOption(*one.socket, 65535, name, &value, size);
        return code == 0 ? value : code;
    };
    for (const auto& [name, written, readBack] :
         {Row{4, -1, 1}, Row{32, -1, 1}, Row{32, 0, 0}, Row{4098, 65536, 65536}, Row{4102, 1500, 1500}})
    {
        ASSERT_EQ(0, one.SetOption(name, written)) << name;
        EXPECT_EQ(readBack, valueOrCode(name, 4)) << name;
    }
    EXPECT_EQ(0, valueOrCode(4103, 4)); // SO_ERROR
    EXPECT_EQ(SocketFault, valueOrCode(4098, 1));
    EXPECT_EQ(SocketFault, SetSocketOption(*one.socket, 65535, 4098, "", 1));
    EXPECT_EQ(SocketProtocolOption, one.SetOption(12345, 1));
}

TEST(NativeSocketsTests, NoCallBeginsAfterTheClose)
{
    NativeTestSocket one;
    NativeTestSocket::Address address = {};
    NativeSocket* none = nullptr;
    SelectEntry entry = {one.socket, true, true, true};
    int number = 4;
    CloseSocket(*one.socket);
    const std::vector<int> codes = {BindSocket(*one.socket, one.local, 16),
                                    BindSocketForSending(*one.socket, one.local, 16),
                                    ConnectSocket(*one.socket, one.local, 16),
                                    ListenSocket(*one.socket, 1),
                                    AcceptSocket(*one.socket, none, address, number),
                                    SetSocketBlocking(*one.socket, true),
                                    GetSocketAvailable(*one.socket, number),
                                    GetSocketAddress(*one.socket, address, number),
                                    GetSocketOption(*one.socket, 65535, 32, &number, number),
                                    one.SetOption(32, 1),
                                    SelectSockets(&entry, 1, 0),
                                    one.Receive(),
                                    one.SendTo(one.local, "late"),
                                    ShutdownSocket(*one.socket, 2)};
    EXPECT_THAT(codes, testing::Each(SocketNotSocket));
    CloseSocket(*one.socket);
}
} // namespace Tesmo::Platform
