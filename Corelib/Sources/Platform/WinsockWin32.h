#pragma once

#include <winsock2.h>

namespace Tesmo::Platform
{
/// Keeps Windows Sockets 2.2 started from the first static initialiser to the exit of the process. Every source that
/// calls Windows Sockets includes this header.
class WinsockSession
{
public:
    WinsockSession()
    {
        WSADATA details;
        started = WSAStartup(MAKEWORD(2, 2), &details) == 0; // else each socket fails with 10093
    }

    ~WinsockSession()
    {
        if (started)
        {
            WSACleanup();
        }
    }

    WinsockSession(const WinsockSession&) = delete;
    WinsockSession& operator=(const WinsockSession&) = delete;

private:
    bool started;
};

inline const WinsockSession winsockSession;
} // namespace Tesmo::Platform
