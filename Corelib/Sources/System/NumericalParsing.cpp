#include <Core/System/NumericalParsing.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/FormatException.h>
#include <Core/System/OverflowException.h>
#include <Core/System/SafeMath.h>
#include <Core/System/String.h>

#include <algorithm>
#include <charconv>
#include <concepts>
#include <limits>

namespace Tesmo::System
{
namespace
{
enum class Fault
{
    None,
    Base,
    Format,
    Overflow,
};

/// A number as it is written: sign and magnitude.
struct Written
{
    std::uint64_t magnitude = 0;
    bool negative = false;
};

/// The value of a digit; 36 for any other character.
int DigitOf(char character)
{
    if (character >= '0' && character <= '9')
    {
        return character - '0';
    }
    const auto lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'z' ? lower - 'a' + 10 : 36;
}

bool EndsWithEither(std::string_view text, char lower)
{
    return !text.empty() && (text.back() | 0x20) == lower;
}

void TrimBack(std::string_view& text)
{
    while (!text.empty() && text.back() == ' ')
    {
        text.remove_suffix(1);
    }
}

/// Takes the digits off the end of text, the least significant first.
Fault TakeDigits(std::string_view& text, int base, std::uint64_t& magnitude)
{
    const std::size_t size = text.size();
    std::uint64_t power = 1; // of base
    bool fits = true;        // power does; once it exceeds 64 bits, only zeros may follow
    while (!text.empty() && DigitOf(text.back()) < base)
    {
        const auto digit = static_cast<std::uint64_t>(DigitOf(text.back()));
        text.remove_suffix(1);
        if (digit != 0)
        {
            std::uint64_t product = 0;
            if (!fits || !SafeMath::TryMultiply(digit, power, product) ||
                !SafeMath::TryAdd(magnitude, product, magnitude))
            {
                return Fault::Overflow;
            }
        }
        fits = fits && SafeMath::TryMultiply(power, static_cast<std::uint64_t>(base), power);
    }
    return text.size() == size ? Fault::Format : Fault::None;
}

/// Takes "0x" or "0b" off the end of text, if the letter stands there.
bool TakePrefix(std::string_view& text, char letter)
{
    if (!EndsWithEither(text, letter))
    {
        return true;
    }
    text.remove_suffix(1);
    if (text.empty() || text.back() != '0')
    {
        return false;
    }
    text.remove_suffix(1);
    return true;
}

/// Reads from the last character to the first: the digits begin with the least significant one, sign and prefix come
/// last.
Fault ReadWritten(std::string_view text, int base, bool isUnsigned, Written& number)
{
    if (base < 2 || base > 32)
    {
        return Fault::Base;
    }
    TrimBack(text);
    if (base == 2 && EndsWithEither(text, 'b'))
    {
        text.remove_suffix(1);
    }
    if (const Fault fault = TakeDigits(text, base, number.magnitude); fault != Fault::None)
    {
        return fault;
    }
    if ((base == 16 && !TakePrefix(text, 'x')) || (base == 2 && !TakePrefix(text, 'b')))
    {
        return Fault::Format;
    }
    if (!text.empty() && (text.back() == '+' || text.back() == '-'))
    {
        number.negative = text.back() == '-';
        text.remove_suffix(1);
    }
    if (isUnsigned && number.negative && number.magnitude != 0) // even if wrong characters stand before the sign
    {
        return Fault::Overflow;
    }
    TrimBack(text);
    return text.empty() ? Fault::None : Fault::Format;
}

Fault Read(std::string_view text, int base, int bits, std::int64_t& result)
{
    Written number;
    if (const Fault fault = ReadWritten(text, base, false, number); fault != Fault::None)
    {
        return fault;
    }
    const std::uint64_t half = std::uint64_t{1} << (bits - 1);
    const std::uint64_t all = half - 1 + half;
    const bool isPattern = !number.negative && (base == 2 || base == 8 || base == 16);
    if (number.magnitude > (isPattern ? all : number.negative ? half : half - 1))
    {
        return Fault::Overflow;
    }
    const bool isNegative = number.negative || number.magnitude >= half;
    const std::uint64_t distance = number.negative ? number.magnitude : all - number.magnitude + 1;
    result = static_cast<std::int64_t>(isNegative ? 0 - distance : number.magnitude);
    return Fault::None;
}

Fault Read(std::string_view text, int base, int bits, std::uint64_t& result)
{
    Written number;
    if (const Fault fault = ReadWritten(text, base, true, number); fault != Fault::None)
    {
        return fault;
    }
    const std::uint64_t all = std::numeric_limits<std::uint64_t>::max() >> (64 - bits);
    if (number.magnitude > all)
    {
        return Fault::Overflow;
    }
    result = number.magnitude;
    return Fault::None;
}

/// Reads "NaN", "Infinity" and "-Infinity", as floating numbers print them.
template <class P>
bool ReadName(std::string_view text, P& result)
{
    if (text == "NaN")
    {
        result = std::numeric_limits<P>::quiet_NaN();
        return true;
    }
    const bool negative = text.starts_with('-');
    if (text.substr(negative ? 1 : 0) == "Infinity")
    {
        result = negative ? -std::numeric_limits<P>::infinity() : std::numeric_limits<P>::infinity();
        return true;
    }
    return false;
}

template <std::floating_point P>
Fault Read(std::string_view text, P& result)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    TrimBack(text);
    if (ReadName(text, result))
    {
        return Fault::None;
    }
    const bool isNumber = text.find_first_not_of("0123456789.eE+-") == text.npos && !text.starts_with("+-");
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    P value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (!isNumber || stop != end || error == std::errc::invalid_argument)
    {
        return Fault::Format;
    }
    if (error != std::errc())
    {
        return Fault::Overflow;
    }
    result = value;
    return Fault::None;
}

void ThrowOn(Fault fault, CallSite site)
{
    switch (fault)
    {
    case Fault::None:
        return;
    case Fault::Base:
        throw ArgumentException(site.file, site.line);
    case Fault::Format:
        throw FormatException(site.file, site.line);
    case Fault::Overflow:
        throw OverflowException(site.file, site.line);
    }
}

template <class... Args>
bool TryRead(const String& text, Args&... args)
{
    return !IsNull(text) && Read(text.Utf8(), args...) == Fault::None;
}
} // namespace

void NumericalParsing::Parse(const String& text, int base, int bits, std::int64_t& result, CallSite site)
{
    ThrowOn(Read(NotNull(text, site).Utf8(), base, bits, result), site);
}

void NumericalParsing::Parse(const String& text, int base, int bits, std::uint64_t& result, CallSite site)
{
    ThrowOn(Read(NotNull(text, site).Utf8(), base, bits, result), site);
}

bool NumericalParsing::TryParse(const String& text, int base, int bits, std::int64_t& result)
{
    return TryRead(text, base, bits, result);
}

bool NumericalParsing::TryParse(const String& text, int base, int bits, std::uint64_t& result)
{
    return TryRead(text, base, bits, result);
}

void NumericalParsing::Parse(const String& text, double& result, CallSite site)
{
    ThrowOn(Read(NotNull(text, site).Utf8(), result), site);
}

void NumericalParsing::Parse(const String& text, float& result, CallSite site)
{
    ThrowOn(Read(NotNull(text, site).Utf8(), result), site);
}

bool NumericalParsing::TryParse(const String& text, double& result)
{
    return TryRead(text, result);
}

bool NumericalParsing::TryParse(const String& text, float& result)
{
    return TryRead(text, result);
}

void NumericalParsing::ParseUtf8(std::string_view text, int base, int bits, std::int64_t& result, CallSite site)
{
    ThrowOn(Read(text, base, bits, result), site);
}

void NumericalParsing::ParseUtf8(std::string_view text, int base, int bits, std::uint64_t& result, CallSite site)
{
    ThrowOn(Read(text, base, bits, result), site);
}
} // namespace Tesmo::System
