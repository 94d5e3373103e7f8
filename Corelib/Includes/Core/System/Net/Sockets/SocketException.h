#pragma once

#include <Core/System/Net/Sockets/SocketError.h>
#include <Core/System/SystemException.h>

namespace Tesmo::System::Net::Sockets
{
/// A socket call that failed, with the number that tells why; the number is also the exception's error code.
class SocketException : public SystemException
{
public:
    /// Without a number of its own: SocketError::SockError.
    [[nodiscard]] SocketException();
    [[nodiscard]] SocketException(const String& message);
    [[nodiscard]] SocketException(const String& file, int line);
    [[nodiscard]] SocketException(const String& message, const String& file, int line);
    [[nodiscard]] SocketException(const String& message, const Exception& inner, const String& file, int line);

    /// The form that the socket layer throws.
    [[nodiscard]] SocketException(const SocketError& error, const String& file, int line);

    /// Compare it by value: the numbers are those of Windows Sockets on every platform.
    const SocketError& SocketErrorCode() const
    {
        return socketErrorCode;
    }

protected:
    String DefaultMessage() const override
    {
        return "The Socket operation failed.";
    }

private:
    SocketError socketErrorCode = SocketError::SockError;
};
} // namespace Tesmo::System::Net::Sockets
