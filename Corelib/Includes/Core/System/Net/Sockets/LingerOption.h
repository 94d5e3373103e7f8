#pragma once

#include <Core/System/Object.h>

namespace Tesmo::System::Net::Sockets
{
/// Whether closing a stream waits for unsent data, and how long.
class LingerOption : public Object
{
public:
    /// @param seconds  0 to 65535
    LingerOption(bool enable, int seconds) : enabled(enable), lingerTime(seconds) {}

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
    void LingerTime(int seconds)
    {
        lingerTime = seconds;
    }

private:
    bool enabled;
    int lingerTime;
};
} // namespace Tesmo::System::Net::Sockets
