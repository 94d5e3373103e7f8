#include <Core/System/Null.h>

namespace Tesmo::Detail
{
constinit const NullBlock nullBlock{};
} // namespace Tesmo::Detail
