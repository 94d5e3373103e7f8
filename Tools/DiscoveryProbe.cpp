#include "ProbeOptions.h"
#include "ProbeReport.h"
#include "ProbeRequest.h"

#include <Core/System/Array.h>
#include <Core/System/Exception.h>
#include <Core/System/Net/IPEndPoint.h>
#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/Text/Encoding.h>
#include <Core/System/Threading/Thread.h>
#include <Discovery/Transport/DiscoveryPorts.h>
#include <Discovery/Transport/DiscoverySocketUdpClient.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <vector>

namespace Zelkor::Discovery::Tools
{
using Tesmo::Sp, Tesmo::Up, Tesmo::System::Array, Tesmo::System::Exception, Tesmo::System::Object,
    Tesmo::System::String, Tesmo::System::Net::IPAddress, Tesmo::System::Net::IPEndPoint,
    Tesmo::System::Net::Sockets::SocketException, Tesmo::System::Text::Encoding, Tesmo::System::Threading::Thread,
    Tesmo::System::Threading::ThreadStart;

namespace
{
constexpr int largestDatagram = 65507; ///< bytes; 65535 less the headers of RFC 791 and RFC 768

/// The probe sits at the other end of the client's two ports.
Sp<IDiscoverySocket> OpenSocket(const IPAddress& address)
{
    const DiscoveryPorts ports;
    return Sp<IDiscoverySocket>(new DiscoverySocketUdpClient(ports.GetRemotePort(), ports.GetLocalPort(), address));
}

void Send(const DiscoveryMessage& message, const ProbeOptions& options, IDiscoverySocket& listener)
{
    const String text = message.ToJSON();
    const Up<char[]> characters = text.ToCCharArray();
    const Up<unsigned char[]> bytes(new unsigned char[static_cast<std::size_t>(text.Length())]);
    std::copy_n(characters.Get(), text.Length(), bytes.Get());
    if (options.from.Equals(IPAddress::Broadcast))
    {
        listener.SendTo(bytes, text.Length(), options.to);
        return;
    }
    const Sp<IDiscoverySocket> sender = OpenSocket(options.from);
    sender->SendTo(bytes, text.Length(), options.to);
}

/// The client sends code page 437.
String Decode(const unsigned char* bytes, int count)
{
    return Encoding::GetEncoding(437)->GetString(Array<unsigned char>(bytes, count));
}

/// Prints each datagram that comes in, for a number of seconds or for ever.
class TimedListener : public Object
{
public:
    TimedListener(const Sp<IDiscoverySocket>& listened, int listenSeconds) : socket(listened), seconds(listenSeconds) {}

    void Run(bool json)
    {
        Thread clock(ThreadStart(*this, &TimedListener::ShutDownInTime));
        if (seconds > 0)
        {
            clock.Start();
        }
        Listen(json);
        clock.Join();
    }

private:
    void Listen(bool json)
    {
        const Up<unsigned char[]> buffer(new unsigned char[largestDatagram]);
        IPEndPoint sender(IPAddress::Any, 0);
        try
        {
            for (;;)
            {
                const int count = socket->Receive(buffer, largestDatagram, sender);
                const String text = Decode(buffer.Get(), count);
                const std::string report = json ? ReportForPrograms(text, sender) : ReportForPeople(text, sender);
                std::fwrite(report.data(), 1, report.size(), stdout);
                std::fflush(stdout);
            }
        }
        catch (const SocketException&)
        {
            if (!isOver)
            {
                throw;
            }
        }
    }

    void ShutDownInTime()
    {
        Thread::Sleep(seconds * 1000);
        isOver = true; // first: the listener wakes before the socket says that it is shut down
        socket->Shutdown();
    }

    Sp<IDiscoverySocket> socket;
    int seconds;
    std::atomic<bool> isOver = false;
};

void Run(const ProbeOptions& options)
{
    const Sp<IDiscoverySocket> socket = OpenSocket(IPAddress::Any);
    if (!options.request.empty())
    {
        Send(*MakeRequest(options), options, *socket);
    }
    TimedListener(socket, options.seconds).Run(options.json);
}

int RunProbe(const std::vector<std::string>& words)
{
    try
    {
        const ProbeOptions options = ProbeOptions::Parse(words);
        if (options.help)
        {
            std::fputs(ProbeOptions::Usage(), stdout);
            return 0;
        }
        Run(options);
        return 0;
    }
    catch (const SocketException& failure)
    {
        std::fprintf(stderr, "DiscoveryProbe: %s %s\n", failure.Message().Utf8().c_str(),
                     failure.SocketErrorCode().ToString().Utf8().c_str());
        return 1;
    }
    catch (const Exception& failure)
    {
        std::fprintf(stderr, "DiscoveryProbe: %s (--help tells the usage)\n", failure.Message().Utf8().c_str());
        return 1;
    }
}
} // namespace
} // namespace Zelkor::Discovery::Tools

int main(int count, char** arguments)
{
    return Zelkor::Discovery::Tools::RunProbe({arguments + 1, arguments + count});
}
