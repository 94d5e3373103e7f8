#pragma once

#include <Core/System/Char32.h>

#include <cstdint>

namespace Tesmo::System
{
/// General categories of the Unicode Character Database, as far as Char tells them apart.
enum class CharacterClass : std::uint8_t
{
    None,
    Letter,
    Digit,
    OtherNumber,
    Punctuation,
    Symbol,
    Separator,
};

/// Known up to U+052F (Latin, Greek, Cyrillic) and from U+1E00 to U+2BFF (their extensions, punctuation and symbols);
/// None elsewhere.
CharacterClass ClassOf(char32 c);
} // namespace Tesmo::System
