#pragma once

#include <Core/System/Virtual.h>

namespace Tesmo::System::Runtime::Serialization
{
/// Marks a class whose fields may be stored by name.
class ISerializable : public Virtual
{
};
} // namespace Tesmo::System::Runtime::Serialization
