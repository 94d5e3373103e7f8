#include <Core/System/IO/Stream.h>

namespace Tesmo::System::IO
{
bool Stream::CanTimeout() const
{
    return false;
}

void Stream::Close()
{
    Flush();
    closed = true;
}

bool Stream::IsClosed() const
{
    return closed;
}

void Stream::MarkOpen()
{
    closed = false;
}
} // namespace Tesmo::System::IO
