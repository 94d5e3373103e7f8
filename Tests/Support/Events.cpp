#include "Events.h"

#include "Commands.h"

#include <algorithm>
#include <array>
#include <poll.h>
#include <unistd.h>

bool WaitUntil(const Descriptor& events, std::chrono::milliseconds limit, const std::function<bool()>& holds)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + limit;
    while (!holds())
    {
        pollfd wait{events.Number(), POLLIN, 0};
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        if (poll(&wait, 1, static_cast<int>(std::max<std::int64_t>(left, 0))) != 1)
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
    Shell("timeout 10 busctl --watch-bind=yes list >/dev/null; gdbus wait --system --timeout 10 " + name);
}
