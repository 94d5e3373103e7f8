#include <Core/System/Null.h>

namespace Tesmo::Detail
{
constinit const NullBlock nullBlock{}; // decision 1
} // namespace Tesmo::Detail
