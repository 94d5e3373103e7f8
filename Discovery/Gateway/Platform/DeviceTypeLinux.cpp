#include "DeviceType.h"

namespace Zelkor::Discovery::Platform
{

const char* DeviceType()
{
    return "Linux PC";
}

} // namespace Zelkor::Discovery::Platform
