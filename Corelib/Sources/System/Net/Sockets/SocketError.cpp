#include <Core/System/Net/Sockets/SocketError.h>

namespace Tesmo::System::Net::Sockets
{
const EnumDeprecated::NameTable& SocketError::Names() const
{
    static constexpr EnumName names[] = {
        {SockError, "SockError"},
        {Success, "Success"},
        {OperationAborted, "OperationAborted"},
        {IOPending, "IOPending"},
        {Interrupted, "Interrupted"},
        {AccessDenied, "AccessDenied"},
        {Fault, "Fault"},
        {InvalidArgument, "InvalidArgument"},
        {TooManyOpenSockets, "TooManyOpenSockets"},
        {WouldBlock, "WouldBlock"},
        {InProgress, "InProgress"},
        {AlreadyInProgress, "AlreadyInProgress"},
        {NotSocket, "NotSocket"},
        {DestinationAddressRequired, "DestinationAddressRequired"},
        {MessageSize, "MessageSize"},
        {ProtocolType, "ProtocolType"},
        {ProtocolOption, "ProtocolOption"},
        {ProtocolNotSupported, "ProtocolNotSupported"},
        {SocketNotSupported, "SocketNotSupported"},
        {OperationNotSupported, "OperationNotSupported"},
        {ProtocolFamilyNotSupported, "ProtocolFamilyNotSupported"},
        {AddressFamilyNotSupported, "AddressFamilyNotSupported"},
        {AddressAlreadyInUse, "AddressAlreadyInUse"},
        {AddressNotAvailable, "AddressNotAvailable"},
        {NetworkDown, "NetworkDown"},
        {NetworkUnreachable, "NetworkUnreachable"},
        {NetworkReset, "NetworkReset"},
        {ConnectionAborted, "ConnectionAborted"},
        {ConnectionReset, "ConnectionReset"},
        {NoBufferSpaceAvailable, "NoBufferSpaceAvailable"},
        {IsConnected, "IsConnected"},
        {NotConnected, "NotConnected"},
        {Shutdown, "Shutdown"},
        {TimedOut, "TimedOut"},
        {ConnectionRefused, "ConnectionRefused"},
        {HostDown, "HostDown"},
        {HostUnreachable, "HostUnreachable"},
        {ProcessLimit, "ProcessLimit"},
        {SystemNotReady, "SystemNotReady"},
        {VersionNotSupported, "VersionNotSupported"},
        {NotInitialized, "NotInitialized"},
        {Disconnecting, "Disconnecting"},
        {TypeNotFound, "TypeNotFound"},
        {HostNotFound, "HostNotFound"},
        {TryAgain, "TryAgain"},
        {NoRecovery, "NoRecovery"},
        {NoData, "NoData"},
    };
    static const NameTable table = EnumNameTable::Build(names);
    return table;
}
} // namespace Tesmo::System::Net::Sockets
