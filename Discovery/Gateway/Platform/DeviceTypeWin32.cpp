#include "DeviceType.h"

namespace Zelkor::Discovery::Client::Platform
{

const char* DeviceType()
{
    return "Windows PC";
}

} // namespace Zelkor::Discovery::Client::Platform
