#include "Events.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace
{
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

/// What is left until a moment, 0 when it has passed.
template <class Unit>
auto Left(Clock::time_point end)
{
    return std::max(std::chrono::duration_cast<Unit>(end - Clock::now()), Unit(0)).count();
}
} // namespace

bool WaitUntil(const Descriptor& events, std::chrono::milliseconds limit, const std::function<bool()>& holds)
{
    const Clock::time_point end = Clock::now() + limit;
    while (!holds())
    {
        pollfd wait{events.Number(), POLLIN, 0};
        if (poll(&wait, 1, static_cast<int>(Left<std::chrono::milliseconds>(end))) != 1)
        {
            return false;
        }
        std::array<char, 4096> ignored;
        [[maybe_unused]] const ssize_t size = read(events.Number(), ignored.data(), ignored.size());
    }
    return true;
}

void WaitForBusName(const std::string& name)
{
    constexpr const char* path = "unix:path=/run/dbus/system_bus_socket";
    constexpr const char* bus = "org.freedesktop.DBus";
    sd_bus* opened = nullptr;
    ASSERT_LE(0, sd_bus_new(&opened));
    const std::unique_ptr<sd_bus, decltype(&sd_bus_close_unref)> connection(opened, sd_bus_close_unref);
    ASSERT_LE(0, sd_bus_set_address(opened, path));
    ASSERT_LE(0, sd_bus_set_bus_client(opened, 1));
    ASSERT_LE(0, sd_bus_set_watch_bind(opened, 1)); // until the socket is there
    ASSERT_LE(0, sd_bus_start(opened));
    const std::string rule =
        std::string("type='signal',sender='") + bus + "',member='NameOwnerChanged',arg0='" + name + "'";
    ASSERT_LE(0, sd_bus_add_match_async(opened, nullptr, rule.c_str(), nullptr, nullptr, nullptr));
    const auto hasOwner = [&]
    {
        return sd_bus_is_ready(opened) > 0 &&
               sd_bus_call_method(opened, bus, "/org/freedesktop/DBus", bus, "GetNameOwner", nullptr, nullptr, "s",
                                  name.c_str()) >= 0;
    };
    const Clock::time_point end = Clock::now() + 10s;
    while (!hasOwner())
    {
        if (sd_bus_process(opened, nullptr) == 0) // nothing came in since
        {
            const auto left = static_cast<std::uint64_t>(Left<std::chrono::microseconds>(end));
            ASSERT_GT(sd_bus_wait(opened, left), 0) << name;
        }
    }
}
