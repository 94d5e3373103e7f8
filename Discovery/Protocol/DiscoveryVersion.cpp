#include "DiscoveryVersion.h"

namespace Zelkor::Discovery
{
using Tesmo::System::Version;

const Version& DiscoveryVersion()
{
    static const Version version(1, 0, 23);
    return version;
}
} // namespace Zelkor::Discovery
