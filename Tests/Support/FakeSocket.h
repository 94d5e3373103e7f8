#pragma once

#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/ObjectClosedException.h>
#include <Core/System/Threading/Semaphore.h>
#include <Discovery/Pipeline/IBroadcastProvider.h>
#include <Discovery/Transport/IDiscoverySocketFactory.h>
#include <gmock/gmock.h>

#include <climits>
#include <deque>

namespace Zelkor::Discovery
{
constexpr int ClosedObject = INT_MIN; ///< stands for an ObjectClosedException

inline void ThrowFailure(const std::optional<int>& code)
{
    if (code == ClosedObject)
    {
        throw Tesmo::System::ObjectClosedException(ThrowSite);
    }
    if (code)
    {
        throw Tesmo::System::Net::Sockets::SocketException(Tesmo::System::Net::Sockets::SocketError(*code), ThrowSite);
    }
}

/// A socket whose datagrams and failures the test gives. It wakes a blocked Receive as the real one does.
class FakeSocket : public IDiscoverySocket
{
public:
    /// The next Receive gives this datagram, or fails.
    void Deliver(const std::string& text)
    {
        Push({text, {}});
    }
    void Fail(int code)
    {
        Push({"", code});
    }

    MOCK_METHOD(Tesmo::Sp<Tesmo::System::Net::Sockets::Socket>, GetSocket, (), (override));
    int Receive(const Tesmo::Up<unsigned char[]>& buffer, int, Tesmo::System::Net::IPEndPoint& endpoint) override
    {
        input.WaitOne();
        const std::lock_guard guard(lock);
        const auto [text, failure] = inputs.front();
        inputs.pop_front();
        ThrowFailure(failure);
        std::copy(text.begin(), text.end(), buffer.Get());
        endpoint = Tesmo::System::Net::IPEndPoint(Tesmo::System::Net::IPAddress(10, 0, 0, 9), 12001);
        return static_cast<int>(text.size());
    }
    int SendTo(const Tesmo::Up<unsigned char[]>& buffer, int size,
               const Tesmo::System::Net::IPAddress& address) override
    {
        ThrowFailure(sendFailure);
        const std::lock_guard guard(lock);
        sent.push_back({std::string(buffer.Get(), buffer.Get() + size), address.ToString().Utf8()});
        return size;
    }
    MOCK_METHOD(int, Broadcast, (const Tesmo::Up<unsigned char[]>&, int), (override));
    void Shutdown() override
    {
        ThrowFailure(shutdownFailure);
        if (!shutDown.exchange(true))
        {
            Fail(Tesmo::System::Net::Sockets::SocketError::Shutdown);
        }
    }
    MOCK_METHOD(bool, IsShutDown, (), (const, override));
    void Close() override
    {
        beforeClose();
        if (!closed.exchange(true) && !shutDown)
        {
            Fail(Tesmo::System::Net::Sockets::SocketError::Interrupted);
        }
    }
    bool IsShutDownFlag() const override
    {
        return shutDown;
    }
    bool IsClosed() const override
    {
        return closed;
    }
    MOCK_METHOD(int, GetLocalPort, (), (const, override));
    MOCK_METHOD(int, GetRemotePort, (), (const, override));

    std::vector<std::pair<std::string, std::string>> sent; ///< texts and destinations
    std::optional<int> sendFailure;
    std::optional<int> shutdownFailure;
    std::function<void()> beforeClose = [] {};

private:
    using Input = std::pair<std::string, std::optional<int>>; ///< a datagram's text, or a failure

    void Push(const Input& next)
    {
        const std::lock_guard guard(lock);
        inputs.push_back(next);
        input.Release();
    }

    std::mutex lock;
    std::deque<Input> inputs;
    Tesmo::System::Threading::Semaphore input{0, INT_MAX};
    std::atomic<bool> shutDown = false;
    std::atomic<bool> closed = false;
};

/// Keeps the sockets that it makes, by address; `refused` can't be bound.
class FakeSocketFactory : public IDiscoverySocketFactory
{
public:
    Tesmo::Sp<IDiscoverySocket> Create(const Tesmo::System::Net::IPAddress& address) override
    {
        const std::string text = address.ToString().Utf8();
        if (text == refused)
        {
            ThrowFailure(Tesmo::System::Net::Sockets::SocketError::AddressNotAvailable);
        }
        return sockets[text] = Tesmo::Sp<FakeSocket>(new FakeSocket);
    }

    std::map<std::string, Tesmo::Sp<FakeSocket>> sockets;
    std::string refused;
};

/// Takes what goes to everybody in place of the network, and keeps the types of the messages.
class FakeProvider : public IBroadcastProvider
{
public:
    void Send(const Tesmo::Up<unsigned char[]>& bytes, int size) override
    {
        const std::string text(bytes.Get(), bytes.Get() + size);
        types += text.substr(25, text.find('"', 25) - 25) + ";"; // behind {"DiscoveryMessageType":"
        onSend();
    }

    std::string types;
    std::function<void()> onSend = [] {};
};
} // namespace Zelkor::Discovery
