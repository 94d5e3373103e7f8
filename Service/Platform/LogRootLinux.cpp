#include "LogRoot.h"

namespace Zelkor::Discovery::Client::Platform
{

std::string LogRoot()
{
    return ZELKOR_LOG_ROOT;
}

} // namespace Zelkor::Discovery::Client::Platform
