#pragma once

#include <Tests/Support/NetworkNamespace.h>

#include <cstdint>
#include <optional>
#include <string>

namespace Lan
{
/// One datagram as it came in.
struct Heard
{
    std::string text;
    std::string sender;      ///< dotted address and port it came from
    std::string destination; ///< dotted address it was sent to
};

/// The administration side of a test LAN: a bare UDP socket on port 12001 of all addresses, made without any class of
/// the product.
class Station
{
public:
    explicit Station(const NetworkNamespace& network);

    /// The next datagram, or nothing after the given time.
    std::optional<Heard> Hear(int milliseconds = 3000) const;

    /// The next datagram whose text holds part.
    std::optional<Heard> HearWith(const std::string& part, int milliseconds = 3000) const;

    /// Sends to port 12000 of address; 255.255.255.255 leaves by the adapter that device names.
    void Say(const std::string& text, const std::string& address, const std::string& device = "") const;

private:
    Descriptor socket;
};
} // namespace Lan
