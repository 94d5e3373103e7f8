#include "DeviceType.h"

namespace Zelkor::Discovery::Platform
{

const char* DeviceType()
{
    return "Windows PC";
}

} // namespace Zelkor::Discovery::Platform
