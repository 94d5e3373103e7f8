#include "NativeSocketLinux.h"
#include "SocketErrorsLinux.h"

#include <poll.h>

#include <cerrno>
#include <chrono>
#include <deque>
#include <vector>

namespace Tesmo::Platform
{
namespace
{
using Clock = std::chrono::steady_clock;

pollfd WaitFor(const SelectEntry& entry)
{
    const int events = (entry.read ? POLLIN : 0) | (entry.write ? POLLOUT : 0) | (entry.error ? POLLPRI : 0);
    return {entry.socket->descriptor, static_cast<short>(events), 0};
}

/// @returns an error number; 0 as well for a wait that a signal ended
int Poll(std::vector<pollfd>& waits, Clock::duration limit, bool isLimited)
{
    const timespec time = {static_cast<time_t>(limit / std::chrono::seconds(1)),
                           static_cast<long>((limit % std::chrono::seconds(1)).count())};
    if (::ppoll(waits.data(), waits.size(), isLimited ? &time : nullptr, nullptr) >= 0)
    {
        return 0;
    }
    for (pollfd& wait : waits)
    {
        wait.revents = 0;
    }
    return errno == EINTR ? 0 : SocketErrorOf(errno);
}

/// What poll found. A report of an earlier datagram counts only if a receive would fail because of it (decision 94).
int Findings(NativeSocket& socket, int found)
{
    if (socket.datagram && (found & POLLERR) != 0 && DrainReports(socket))
    {
        found &= ~POLLERR;
    }
    return socket.portUnreachable ? found | POLLIN : found;
}

/// The conditions that were asked for and hold.
SelectEntry Answer(const SelectEntry& asked, int found)
{
    return {asked.socket, asked.read && (found & (POLLIN | POLLHUP | POLLERR)) != 0,
            asked.write && (found & (POLLOUT | POLLERR)) != 0, asked.error && (found & (POLLPRI | POLLERR)) != 0};
}

/// @param answers  receives an answer to each entry
/// @returns true when one of the conditions asked for holds
bool FindAnswers(const SelectEntry* entries, std::vector<pollfd>& waits, std::vector<SelectEntry>& answers)
{
    bool isAnyFound = false;
    answers.clear();
    for (pollfd& wait : waits)
    {
        const SelectEntry& asked = entries[answers.size()];
        const SelectEntry& answer = answers.emplace_back(Answer(asked, Findings(*asked.socket, wait.revents)));
        const bool isFound = answer.read || answer.write || answer.error;
        isAnyFound = isAnyFound || isFound;
        if (!isFound && (wait.revents & POLLHUP) != 0)
        {
            wait.fd = -1; // nobody asked for it, and poll would find it again at once
        }
    }
    return isAnyFound;
}
} // namespace

int SelectSockets(SelectEntry* entries, int count, int microseconds)
{
    const auto end = Clock::now() + std::chrono::microseconds(microseconds);
    SelectEntry* const entriesEnd = entries + count;
    std::deque<Call> calls;
    std::vector<pollfd> waits;
    for (SelectEntry* entry = entries; entry != entriesEnd; ++entry)
    {
        if (calls.emplace_back(*entry->socket).Refused())
        {
            return SocketNotSocket;
        }
        waits.push_back(WaitFor(*entry));
    }
    std::vector<SelectEntry> answers;
    for (bool isOver = false; !isOver;)
    {
        const bool isToldOf = std::any_of(
            entries, entriesEnd, [](const SelectEntry& entry) { return entry.read && entry.socket->portUnreachable; });
        const auto left = isToldOf ? Clock::duration::zero() : std::max(end - Clock::now(), Clock::duration::zero());
        if (const int code = Poll(waits, left, isToldOf || microseconds >= 0); code != 0)
        {
            return code;
        }
        isOver = FindAnswers(entries, waits, answers) || (microseconds >= 0 && Clock::now() >= end);
    }
    std::copy(answers.begin(), answers.end(), entries);
    return 0;
}
} // namespace Tesmo::Platform
