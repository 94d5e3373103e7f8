#pragma once

#include <Core/System/Char32.h>

namespace Tesmo::System
{
/// The simple one-to-one case mappings of the Unicode Character Database; other code points stay as they are.
char32 LowerCase(char32 c);
char32 UpperCase(char32 c);
} // namespace Tesmo::System
