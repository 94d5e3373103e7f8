#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>

namespace Tesmo::System::Detail
{
void ThrowArgumentNull(CallSite site)
{
    throw ArgumentNullException(site.file, site.line);
}

void ThrowArgumentOutOfRange(CallSite site)
{
    throw ArgumentOutOfRangeException(site.file, site.line);
}
} // namespace Tesmo::System::Detail
