#include "JSONTextScanner.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <system_error>

namespace Zelkor::Serialization::Json
{
namespace
{
constexpr int LongestNumber = 63; // cJSON 1.7 copies a number into 64 bytes and cuts the rest off

/// The code unit of four hexadecimal digits; 0 for other characters; -1 where the string ends within the four.
int CodeUnit(const char* digits)
{
    for (int i = 0; i < 4; ++i)
    {
        if (digits[i] == '\0' || digits[i] == '"' || digits[i] == '\\')
        {
            return -1;
        }
    }
    int unit = 0;
    const auto result = std::from_chars(digits, digits + 4, unit, 16);
    return result.ptr == digits + 4 && *digits != '-' ? unit : 0;
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// For a number out of a double's range: true if it is too large, false if it is too small. The power of ten of its
/// first digit decides.
bool IsTooLarge(std::string_view number)
{
    const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mantissaEnd);
    std::string_view exponentText = number.substr(std::min(mantissaEnd + 1, number.size()));
    exponentText.remove_prefix(exponentText.starts_with('+') ? 1 : 0);
    std::int64_t exponent = 0;
    if (std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent).ec ==
        std::errc::result_out_of_range)
    {
        return exponentText.front() != '-';
    }
    const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto firstDigit = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    return exponent > firstDigit - point;
}

/// The shortest text of a double without a decimal point: cJSON would replace the point by that of the locale.
/// (decision 83)
std::string WithoutPoint(double value)
{
    std::array<char, 32> text = {};
    char* last = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
    char* const point = std::find(text.data(), last, '.');
    char* const sign = std::find(point, last, 'e') + 1;
    if (point != last)
    {
        int exponent = 0;
        std::from_chars(*sign == '+' ? sign + 1 : sign, last, exponent);
        exponent -= static_cast<int>(sign - point) - 2;
        std::rotate(point, point + 1, sign);
        last = std::to_chars(sign - 1, text.data() + text.size(), exponent).ptr;
    }
    return {text.data(), last};
}

bool IsHighSurrogate(int unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(int unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}
} // namespace

JSONTextScanner::JSONTextScanner(const std::string& text) : cursor(text.c_str()), pending(cursor) {}

// decision 78
bool JSONTextScanner::Scan(char opening)
{
    while (*cursor > 0 && *cursor <= ' ')
    {
        ++cursor;
    }
    if (*cursor != opening)
    {
        return false;
    }
    do
    {
        if (!ScanToken())
        {
            return false;
        }
    } while (depth > 0);
    if (isRewritten)
    {
        rewritten.append(pending, cursor);
    }
    return true;
}

std::string_view JSONTextScanner::Result() const
{
    return isRewritten ? std::string_view(rewritten) : std::string_view(pending, cursor);
}

bool JSONTextScanner::ScanToken()
{
    switch (*cursor)
    {
    case '\0':
        return false;
    case '"':
        return ScanString();
    case '{':
    case '[':
        ++depth;
        break;
    case '}':
    case ']':
        --depth;
        break;
    default:
        if (*cursor == '-' || IsDigit(*cursor))
        {
            return ScanNumber();
        }
    }
    ++cursor;
    return true;
}

bool JSONTextScanner::ScanString()
{
    ++cursor;
    while (*cursor != '"')
    {
        if (*cursor == '\0' || (*cursor == '\\' && !ScanEscape()))
        {
            return false;
        }
        ++cursor;
    }
    ++cursor;
    return true;
}

/// Leaves the cursor on the last character of the escape.
bool JSONTextScanner::ScanEscape()
{
    switch (cursor[1])
    {
    case '\0':
        return false;
    case 'u':
        return ScanUnicodeEscape();
    case '"':
    case '\\':
    case '/':
    case 'b':
    case 'f':
    case 'n':
    case 'r':
    case 't':
        break;
    default:
        Replace(2, std::string_view(cursor + 1, 1));
    }
    ++cursor;
    return true;
}

/// A code unit that is no character is dropped, and so is a pair whose second half is no low surrogate.
/// (decision 79)
bool JSONTextScanner::ScanUnicodeEscape()
{
    constexpr int length = 6;
    const int unit = CodeUnit(cursor + 2);
    const bool isPair = IsHighSurrogate(unit) && cursor[length] == '\\' && cursor[length + 1] == 'u';
    const int second = isPair ? CodeUnit(cursor + length + 2) : 0;
    if (unit < 0 || second < 0)
    {
        return false;
    }
    const int consumed = isPair ? 2 * length : length;
    const bool isCharacter =
        isPair ? IsLowSurrogate(second) : unit != 0 && !IsHighSurrogate(unit) && !IsLowSurrogate(unit);
    if (!isCharacter)
    {
        Replace(consumed, {});
    }
    cursor += consumed - 1;
    return true;
}

bool JSONTextScanner::ScanNumber()
{
    const char* const start = cursor;
    bool hasPoint = false;
    for (; IsDigit(*cursor) || *cursor == '-' || *cursor == '+' || *cursor == '.' || (*cursor | 0x20) == 'e'; ++cursor)
    {
        if (*cursor == '.' && !IsDigit(cursor[1]))
        {
            return false;
        }
        hasPoint |= *cursor == '.';
    }
    if (!hasPoint && cursor - start <= LongestNumber)
    {
        return true;
    }
    const char* const end = cursor;
    double value = 0;
    const auto [read, error] = std::from_chars(start, end, value);
    const bool isTooLarge = error == std::errc::result_out_of_range && IsTooLarge({start, end});
    cursor = start;
    Replace(static_cast<int>(end - start), isTooLarge ? (*start == '-' ? "-1e999" : "1e999") : WithoutPoint(value));
    cursor = end;
    return read == end;
}

/// Writes the replacement instead of the next length characters; the cursor stays.
void JSONTextScanner::Replace(int length, std::string_view replacement)
{
    isRewritten = true;
    rewritten.append(pending, cursor);
    rewritten.append(replacement);
    pending = cursor + length;
}
} // namespace Zelkor::Serialization::Json
