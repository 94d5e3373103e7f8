#pragma once

#include <Core/System/Object.h>

namespace Tesmo::System::Net::Sockets
{
/// Whether closing a stream waits for unsent data, and how long.
class LingerOption : public Object
{
public:
    /// @param seconds  0 to 65535
    /// @throws ArgumentOutOfRangeException  seconds is not in that range
    LingerOption(bool enable, int seconds);

    /// False: closing returns at once, and the system sends what is left by itself.
    bool Enabled() const
    {
        return enabled;
    }
    void Enabled(bool value)
    {
        enabled = value;
    }

    /// In seconds.
    int LingerTime() const
    {
        return lingerTime;
    }
    /// @throws ArgumentOutOfRangeException  seconds is not in 0 to 65535
    void LingerTime(int seconds);

private:
    bool enabled;
    int lingerTime;
};
} // namespace Tesmo::System::Net::Sockets
