#pragma once

#include <chrono>

namespace Zelkor::Discovery::Client
{
/// How long a client waits before it restarts itself. A start has failed if it can't build its socket, or if it doesn't
/// hold for a minute: restarts that follow a failed start are a second apart, then two, four and so on up to a minute.
/// For one thread at a time.
class RestartSpacing
{
public:
    virtual ~RestartSpacing() = default;

    /// Called once for each restart that is asked for.
    /// @param held  how long the last start has held
    /// @returns milliseconds to wait before it, 0 after a start that has held
    virtual int Next(std::chrono::steady_clock::duration held);

private:
    int delay = 0; ///< milliseconds, as given last
};
} // namespace Zelkor::Discovery::Client
