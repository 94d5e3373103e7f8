#include "ProgramRoot.h"

namespace Zelkor::Discovery::Platform
{

std::string ProgramRoot()
{
    return ZELKOR_PROGRAM_ROOT;
}

} // namespace Zelkor::Discovery::Platform
