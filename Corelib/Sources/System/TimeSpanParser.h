#pragma once

#include <cstdint>
#include <string_view>

namespace Tesmo::System
{
/// Reads "[-]days" or "[-][days.]hh:mm[:ss[.f]]" with up to 7 fraction digits, blanks around it allowed.
class TimeSpanParser
{
public:
    enum class Outcome
    {
        Parsed,
        Malformed,
        OutOfRange, ///< hours above 23, minutes or seconds above 59, or more ticks than 64 bits hold
    };

    explicit TimeSpanParser(std::string_view text) : rest(text) {}

    Outcome Run();

    /// The result, once Run has given Parsed.
    std::int64_t Ticks() const
    {
        return ticks;
    }

private:
    bool Take(char character);
    bool TakeNumber(std::int64_t& number);
    bool TakeFraction();
    bool TakeFields();
    bool TakeTimeOfDay();
    Outcome Total(bool isNegative);

    std::string_view rest;
    std::int64_t days = 0;
    std::int64_t hours = 0;
    std::int64_t minutes = 0;
    std::int64_t seconds = 0;
    std::int64_t fraction = 0; ///< ticks
    std::int64_t ticks = 0;
};
} // namespace Tesmo::System
