#include "HostEntryCopy.h"
#include "SocketErrorsLinux.h"

#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

namespace Tesmo::Platform
{
bool FindHostByName(const std::string& name, HostEntry& entry)
{
    return CopyHostEntry(::gethostbyname(name.c_str()), entry);
}

bool FindHostByAddress(const std::vector<unsigned char>& address, HostEntry& entry)
{
    const int family = address.size() == 4 ? AF_INET : AF_INET6;
    return CopyHostEntry(::gethostbyaddr(address.data(), static_cast<socklen_t>(address.size()), family), entry);
}

int ReadOwnHostName(std::string& name)
{
    char text[HostNameSize] = {};
    if (::gethostname(text, sizeof(text) - 1) != 0)
    {
        return SocketErrorOf(errno);
    }
    name = text;
    return 0;
}
} // namespace Tesmo::Platform
