#pragma once

#include <Core/System/Collections/Generic/SortedDictionary.h>
#include <Core/System/EnumName.h>
#include <Core/System/String.h>

#include <span>

namespace Tesmo::System
{
/// The name table of an enumeration, and what its kinds do with it.
class EnumNameTable
{
public:
    using Names = Collections::Generic::SortedDictionary<int, String>;

    EnumNameTable() = delete;

    /// Builds a table. A class does it once: `static const Names table = EnumNameTable::Build(names);`.
    static Names Build(std::span<const EnumName> names);

    /// The name of value, or value in decimal.
    static String TextOf(const Names& names, int value);

    /// The names of the bits of value, the highest first, with ", " between them; the name of 0 or "0" for none. In
    /// decimal where a bit has no name.
    static String FlagsTextOf(const Names& names, int value);

    /// True where value itself has a name; AreFlagsDefined looks at its bits.
    static bool IsDefined(const Names& names, int value);

    /// True where the bits of value are made of named values.
    static bool AreFlagsDefined(const Names& names, int value);

    /// Reads a name or a decimal number. False, and no change of value, for other text and for null.
    static bool TryParse(const Names& names, const String& text, bool ignoreCase, int& value);

    /// Reads names with "," between them, blanks around each allowed, or one decimal number. False where a part has no
    /// name: value then holds the parts that have one.
    static bool TryParseFlags(const Names& names, const String& text, bool ignoreCase, int& value);
};
} // namespace Tesmo::System
