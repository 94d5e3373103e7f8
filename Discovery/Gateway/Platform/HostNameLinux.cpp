#include "HostName.h"

#include <cerrno>
#include <unistd.h>

namespace Zelkor::Discovery::Platform
{

int ReadHostName(char (&name)[HostNameSize])
{
    return gethostname(name, HostNameSize) == 0 ? 0 : errno;
}

} // namespace Zelkor::Discovery::Platform
