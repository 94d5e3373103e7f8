#include "Station.h"

#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <net/if.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <vector>

namespace Lan
{
namespace
{
sockaddr_in Endpoint(const std::string& address, int port)
{
    sockaddr_in endpoint{};
    endpoint.sin_family = AF_INET;
    endpoint.sin_port = htons(static_cast<std::uint16_t>(port));
    inet_pton(AF_INET, address.c_str(), &endpoint.sin_addr);
    return endpoint;
}

std::string Dotted(const in_addr& address)
{
    char text[INET_ADDRSTRLEN];
    inet_ntop(AF_INET, &address, text, sizeof(text));
    return text;
}
} // namespace

Station::Station(const NetworkNamespace& network)
{
    network.Within(
        [&]
        {
            socket = Descriptor(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
            const int on = 1;
            const int room = 1 << 20;
            setsockopt(socket.Number(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on));
            setsockopt(socket.Number(), SOL_SOCKET, SO_BROADCAST, &on, sizeof(on));
            setsockopt(socket.Number(), IPPROTO_IP, IP_PKTINFO, &on, sizeof(on));
            setsockopt(socket.Number(), SOL_SOCKET, SO_RCVBUFFORCE, &room, sizeof(room));
            const sockaddr_in local = Endpoint("0.0.0.0", 12001);
            if (bind(socket.Number(), reinterpret_cast<const sockaddr*>(&local), sizeof(local)) != 0)
            {
                throw std::runtime_error("cannot bind the station");
            }
        });
}

std::optional<Heard> Station::Hear(int milliseconds) const
{
    pollfd wait{socket.Number(), POLLIN, 0};
    if (poll(&wait, 1, milliseconds) != 1)
    {
        return std::nullopt;
    }
    std::vector<char> buffer(65536);
    sockaddr_in sender{};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(in_pktinfo))];
    iovec block{buffer.data(), buffer.size()};
    msghdr message{&sender, sizeof(sender), &block, 1, control, sizeof(control), 0};
    const ssize_t count = recvmsg(socket.Number(), &message, 0);
    if (count < 0)
    {
        return std::nullopt;
    }
    Heard heard{std::string(buffer.data(), static_cast<std::size_t>(count)),
                Dotted(sender.sin_addr) + ":" + std::to_string(ntohs(sender.sin_port)), ""};
    if (const cmsghdr* const header = CMSG_FIRSTHDR(&message); header != nullptr && header->cmsg_type == IP_PKTINFO)
    {
        in_pktinfo information;
        std::memcpy(&information, CMSG_DATA(header), sizeof(information));
        heard.destination = Dotted(information.ipi_addr);
    }
    return heard;
}

std::optional<Heard> Station::HearWith(const std::string& part, int milliseconds) const
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;)
    {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()).count();
        const std::optional<Heard> heard = left > 0 ? Hear(static_cast<int>(left)) : std::nullopt;
        if (!heard || heard->text.find(part) != std::string::npos)
        {
            return heard;
        }
    }
}

void Station::Say(const std::string& text, const std::string& address, const std::string& device) const
{
    setsockopt(socket.Number(), SOL_SOCKET, SO_BINDTODEVICE, device.c_str(), static_cast<socklen_t>(device.size()));
    const sockaddr_in remote = Endpoint(address, 12000);
    const ssize_t count = sendto(socket.Number(), text.data(), text.size(), 0,
                                 reinterpret_cast<const sockaddr*>(&remote), sizeof(remote));
    const int code = errno;
    setsockopt(socket.Number(), SOL_SOCKET, SO_BINDTODEVICE, "", 0);
    if (count != static_cast<ssize_t>(text.size()))
    {
        throw std::runtime_error("cannot send: " + std::to_string(code));
    }
}
} // namespace Lan
