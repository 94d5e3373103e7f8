#include "LogRoot.h"

namespace Zelkor::Discovery::Client::Platform
{

std::string LogRoot()
{
    return "C:\\ZelkorLogs";
}

} // namespace Zelkor::Discovery::Client::Platform
