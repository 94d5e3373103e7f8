#pragma once

namespace Tesmo::System
{
/// Root of the classes that mark an enumeration.
class Attribute
{
};
} // namespace Tesmo::System
