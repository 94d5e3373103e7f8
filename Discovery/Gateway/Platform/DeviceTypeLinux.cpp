#include "DeviceType.h"

namespace Zelkor::Discovery::Client::Platform
{

const char* DeviceType()
{
    return "Linux PC";
}

} // namespace Zelkor::Discovery::Client::Platform
