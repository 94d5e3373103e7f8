#include <Core/System/Net/Sockets/SocketException.h>

namespace Tesmo::System::Net::Sockets
{
SocketException::SocketException()
{
    ErrorCode(socketErrorCode.Value());
}

SocketException::SocketException(const String& message) : SystemException(message)
{
    ErrorCode(socketErrorCode.Value());
}

SocketException::SocketException(const String& file, int line) : SystemException(file, line)
{
    ErrorCode(socketErrorCode.Value());
}

SocketException::SocketException(const String& message, const String& file, int line)
    : SystemException(message, file, line)
{
    ErrorCode(socketErrorCode.Value());
}

SocketException::SocketException(const String& message, const Exception& inner, const String& file, int line)
    : SystemException(message, inner, file, line)
{
    ErrorCode(socketErrorCode.Value());
}

SocketException::SocketException(const SocketError& error, const String& file, int line)
    : SystemException(file, line),
      socketErrorCode(error)
{
    ErrorCode(error.Value());
}
} // namespace Tesmo::System::Net::Sockets
