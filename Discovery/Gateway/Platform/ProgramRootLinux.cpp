#include "ProgramRoot.h"

namespace Zelkor::Discovery::Client::Platform
{

std::string ProgramRoot()
{
    return ZELKOR_PROGRAM_ROOT;
}

} // namespace Zelkor::Discovery::Client::Platform
