#pragma once

#include <Core/System/EnumDeprecated.h>

namespace Tesmo::System::LogStreams
{
/// How important a log row is. A stream writes a row when the row's number is not above its own, so a stream at None
/// is not silent: it writes everything.
class LogStreamLevel : public EnumDeprecated
{
public:
    /// Scoped, as a plain constant would pass for the error code of a row.
    enum class Constant
    {
        Critical = 1,
        Standard = 2,
        Debug = 3,
        None = 255,
    };
    using enum Constant;

    /// Without a level: None, at which a stream writes everything.
    LogStreamLevel(Constant constant = None) : LogStreamLevel(static_cast<int>(constant)) {}

    /// Takes any number; one outside the table is refused when it is turned into text.
    explicit LogStreamLevel(int number) : EnumDeprecated(number) {}

    bool operator==(const LogStreamLevel& other) const
    {
        return EnumDeprecated::operator==(other);
    }

    /// The name. Its first letter is the code of the level in a row.
    /// @throws ArgumentException  the number is none of the table
    String ToString() const override;

    const NameTable& Names() const override;
};
} // namespace Tesmo::System::LogStreams
