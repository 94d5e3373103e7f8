#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::LogStreams
{
/// How important a log row is. A stream writes a row when the row's number is not above its own, so a stream at None
/// is not silent: it writes everything.
class LogStreamLevel : public EnumDeprecated
{
public:
    enum class Value
    {
        Critical = 1,
        Standard = 2,
        Debug = 3,
        None = 255,
    };
    using enum Value;

    LogStreamLevel() : LogStreamLevel(None) {}
    LogStreamLevel(Value value) : LogStreamLevel(static_cast<int>(value)) {}

    /// Takes any number; one outside the table is refused when it is turned into text.
    explicit LogStreamLevel(int value) : EnumDeprecated(value) {}

    /// The name. Its first letter is the code of the level in a row.
    /// @throws ArgumentException  the number is none of the table
    String ToString() const override;

    const Collections::Generic::SortedDictionary<int, String>& Names() const override;
};
} // namespace Tesmo::System::LogStreams
