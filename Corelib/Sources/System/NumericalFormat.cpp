#include <Core/System/NumericalFormat.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/FormatException.h>
#include <Core/System/String.h>
#include <Core/System/ThrowSite.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace Tesmo::System
{
namespace
{
constexpr int IntegerDigits = 10; // significant digits of the general format of every integer
constexpr int FractionDigits = 2; // of "f", "n" and "p"

struct Integer
{
    std::uint64_t magnitude;
    std::uint64_t image; ///< the two's-complement pattern in the width of the type
    bool negative;
};

using IntegerText = std::array<char, 64>; // 64 binary digits at most

/// Room for the digits of a floating number; only huge precisions use the heap.
struct FloatText
{
    std::array<char, 512> usual;
    std::string large;
};

char StandardLetter(char first)
{
    switch (first)
    {
    case 'B':
    case 'D':
    case 'F':
    case 'N':
    case 'P':
        return static_cast<char>(first - 'A' + 'a');
    case 'b':
    case 'd':
    case 'f':
    case 'g':
    case 'G':
    case 'n':
    case 'p':
    case 'x':
    case 'X':
        return first;
    default:
        return 0;
    }
}

/// Reads a number of up to nine digits; -1 for any other text.
int ReadPrecision(std::string_view digits)
{
    int precision = digits.size() > 9 ? -1 : 0;
    for (std::size_t i = 0; i < digits.size() && precision >= 0; ++i)
    {
        const int digit = digits[i] - '0';
        precision = digit < 0 || digit > 9 ? -1 : precision * 10 + digit;
    }
    return precision;
}

/// The parts of a format; the letter is 0 for one that is not standard.
struct Pattern
{
    char letter = 'G';
    int precision = 0;
    bool precisionGiven = false;

    explicit Pattern(std::string_view format)
    {
        if (!format.empty())
        {
            precision = ReadPrecision(format.substr(1));
            letter = precision < 0 ? '\0' : StandardLetter(format.front());
            precision = letter == 0 ? 0 : precision;
            precisionGiven = format.size() > 1;
        }
    }

    int PrecisionOr(int standard) const
    {
        return precisionGiven ? precision : standard;
    }
};

std::string_view Digits(std::uint64_t value, int base, IntegerText& buffer)
{
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, base);
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
}

void AppendPadded(std::string& text, std::string_view digits, int precision)
{
    if (static_cast<std::size_t>(precision) > digits.size())
    {
        text.append(static_cast<std::size_t>(precision) - digits.size(), '0');
    }
    text += digits;
}

void AppendImage(std::string& text, const Integer& number, int base, const Pattern& pattern)
{
    IntegerText buffer;
    const std::string_view digits = Digits(number.image, base, buffer);
    if (pattern.letter == 'X')
    {
        std::transform(buffer.begin(), buffer.begin() + digits.size(), buffer.begin(),
                       [](char digit) { return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit; });
    }
    AppendPadded(text, digits, pattern.precision);
}

/// Puts ',' between the groups of three digits of the number at the end of text, which begins at start.
void Group(std::string& text, std::size_t start)
{
    start += text[start] == '-' ? 1 : 0;
    for (std::size_t at = std::min(text.find('.', start), text.size()); at > start + 3;)
    {
        at -= 3;
        text.insert(at, 1, ',');
    }
}

/// Precision 0 leaves the bare '.' behind an integer: required (decision 17).
void AppendFraction(std::string& text, int zeros)
{
    text += '.';
    text.append(static_cast<std::size_t>(zeros), '0');
}

std::string_view FloatDigits(double value, std::chars_format style, int precision, FloatText& buffer)
{
    constexpr std::size_t wholeDigits = std::numeric_limits<double>::max_exponent10 + 16; // sign, point, exponent
    const std::size_t room = wholeDigits + static_cast<std::size_t>(precision);
    if (room > buffer.usual.size())
    {
        buffer.large.resize(room);
    }
    char* const begin = room > buffer.usual.size() ? buffer.large.data() : buffer.usual.data();
    const auto [end, error] = std::to_chars(begin, begin + room, value, style, precision);
    std::string_view digits(begin, static_cast<std::size_t>(end - begin));
    if (digits.front() == '-' && digits.find_first_of("123456789") == digits.npos)
    {
        digits.remove_prefix(1); // no negative zero (decision 18)
    }
    return digits;
}

void AppendGeneral(std::string& text, double value, int precision, char letter)
{
    FloatText buffer;
    const std::size_t start = text.size();
    text += FloatDigits(value, std::chars_format::general, precision, buffer);
    if (letter == 'G')
    {
        std::replace(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(), 'e', 'E');
    }
}

void AppendDecimal(std::string& text, const Integer& number, std::string_view digits, int precision)
{
    if (number.negative)
    {
        text += '-';
    }
    AppendPadded(text, digits, precision);
}

/// The plain digits where %g needs no exponent. A double holds up to 15 digits exactly, so up to there it is enough to
/// count them.
void AppendGeneral(std::string& text, const Integer& number, std::string_view digits, const Pattern& pattern)
{
    const int precision = pattern.precision > 0 ? pattern.precision : IntegerDigits;
    if (static_cast<int>(digits.size()) <= std::min(precision, std::numeric_limits<double>::digits10))
    {
        AppendDecimal(text, number, digits, 0);
        return;
    }
    const std::size_t start = text.size();
    const auto magnitude = static_cast<double>(number.magnitude);
    AppendGeneral(text, number.negative ? -magnitude : magnitude, precision, pattern.letter);
    if (text.find_first_of("eE", start) == text.npos)
    {
        text.resize(start);
        AppendDecimal(text, number, digits, 0);
    }
}

void AppendPercent(std::string& text, const Integer& number, std::string_view digits, int precision)
{
    const std::size_t start = text.size();
    AppendDecimal(text, number, digits, 0);
    if (number.magnitude != 0)
    {
        text += "00";
    }
    if (precision > 0)
    {
        AppendFraction(text, precision);
    }
    Group(text, start);
    text += " %";
}

void AppendInteger(std::string& text, const Integer& number, std::string_view format)
{
    const Pattern pattern(format);
    const std::size_t start = text.size();
    IntegerText buffer;
    const std::string_view digits = Digits(number.magnitude, 10, buffer);
    switch (pattern.letter)
    {
    case 'g':
    case 'G':
        return AppendGeneral(text, number, digits, pattern);
    case 'd':
        return AppendDecimal(text, number, digits, pattern.precision);
    case 'x':
    case 'X':
        return AppendImage(text, number, 16, pattern);
    case 'b':
        return AppendImage(text, number, 2, pattern);
    case 'p':
        return AppendPercent(text, number, digits, pattern.precision);
    case 'f':
    case 'n':
        AppendDecimal(text, number, digits, 0);
        AppendFraction(text, pattern.PrecisionOr(FractionDigits));
        if (pattern.letter == 'n')
        {
            Group(text, start);
        }
        return;
    default: // an unknown letter prints the format, a known one with a bad precision nothing: required (decision 16)
        if (StandardLetter(format.front()) == 0)
        {
            text += format;
        }
    }
}

void AppendFixed(std::string& text, double value, const Pattern& pattern)
{
    const std::size_t start = text.size();
    FloatText buffer;
    text += FloatDigits(value, std::chars_format::fixed, pattern.PrecisionOr(FractionDigits), buffer);
    if (pattern.letter == 'n')
    {
        Group(text, start);
    }
    if (pattern.letter == 'p')
    {
        text += " %";
    }
}

std::string_view CheckedFormat(const String& format)
{
    NotNull(format);
    return format.Utf8();
}

template <class... Args>
String Collect(const String& format, Args... args)
{
    std::string text;
    NumericalFormat::Append(text, args..., CheckedFormat(format));
    return String(std::move(text));
}
} // namespace

void NumericalFormat::ParseFormat(const String& format, char32& letter, int& precision)
{
    const Pattern pattern(CheckedFormat(format));
    letter = pattern.letter;
    precision = pattern.precision;
}

String NumericalFormat::ToString(std::int64_t value, int bits, const String& format)
{
    return Collect(format, value, bits);
}

String NumericalFormat::ToString(std::uint64_t value, int bits, const String& format)
{
    return Collect(format, value, bits);
}

String NumericalFormat::ToString(double value, int digits, const String& format)
{
    return Collect(format, value, digits);
}

void NumericalFormat::Append(std::string& text, std::int64_t value, int bits, std::string_view format)
{
    const auto pattern = static_cast<std::uint64_t>(value);
    const std::uint64_t mask = ~std::uint64_t{0} >> (64 - bits);
    AppendInteger(text, {value < 0 ? 0 - pattern : pattern, pattern & mask, value < 0}, format);
}

void NumericalFormat::Append(std::string& text, std::uint64_t value, int, std::string_view format)
{
    AppendInteger(text, {value, value, false}, format);
}

void NumericalFormat::Append(std::string& text, double value, int digits, std::string_view format)
{
    const Pattern pattern(format);
    value *= pattern.letter == 'p' ? 100 : 1; // before the test, because the product may be infinite
    if (!std::isfinite(value))
    {
        text += std::isnan(value) ? "NaN" : value < 0 ? "-Infinity" : "Infinity";
        return;
    }
    switch (pattern.letter)
    {
    case 'g':
    case 'G':
        return AppendGeneral(text, value, pattern.precision > 0 ? pattern.precision : digits, pattern.letter);
    case 'f':
    case 'n':
    case 'p':
        return AppendFixed(text, value, pattern);
    default:
        throw FormatException(ThrowSite);
    }
}
} // namespace Tesmo::System
