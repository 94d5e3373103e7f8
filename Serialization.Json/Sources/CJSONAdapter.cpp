#include "CJSONAdapter.h"

#include "JSONTextScanner.h"

#include <Core/System/Boolean.h>
#include <Core/System/Double.h>
#include <Core/System/EnumDeprecated.h>
#include <Core/System/FormatException.h>
#include <Core/System/IEnum.h>
#include <Core/System/Int32.h>
#include <Core/System/Int64.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/String.h>
#include <Core/System/ThrowSite.h>
#include <Core/System/UInt32.h>
#include <Core/System/UInt64.h>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace Zelkor::Serialization::Json::CJSONAdapter
{
using Tesmo::System::Boolean, Tesmo::System::Double, Tesmo::System::EnumDeprecated, Tesmo::System::FormatException,
    Tesmo::System::IEnum, Tesmo::System::Int32, Tesmo::System::Int64, Tesmo::System::Object,
    Tesmo::System::OutOfMemoryException, Tesmo::System::String, Tesmo::System::UInt32, Tesmo::System::UInt64;

namespace
{
/// The letter of a short escape, 'u' for a character that needs its code, 0 for one that stands for itself.
char EscapeOf(unsigned char c)
{
    switch (c)
    {
    case '"':
    case '\\':
        return static_cast<char>(c);
    case '\b':
        return 'b';
    case '\t':
        return 't';
    case '\n':
        return 'n';
    case '\f':
        return 'f';
    case '\r':
        return 'r';
    default:
        return c < 0x20 ? 'u' : '\0';
    }
}

void PrintString(const char* value, std::string& text)
{
    constexpr std::string_view hexadecimal = "0123456789abcdef";
    text += '"';
    const char* run = value;
    for (; *value != '\0'; ++value)
    {
        const auto c = static_cast<unsigned char>(*value);
        const char escape = EscapeOf(c);
        if (escape == '\0')
        {
            continue;
        }
        text.append(run, value);
        text += '\\';
        text += escape;
        if (escape == 'u')
        {
            text.append("00");
            text += hexadecimal[c >> 4];
            text += hexadecimal[c & 0xF];
        }
        run = value + 1;
    }
    text.append(run, value);
    text += '"';
}

/// Integers print without a point, others with six decimals. NaN and infinity have no JSON form and print as null.
void PrintNumber(double value, std::string& text)
{
    constexpr double tolerance = std::numeric_limits<double>::epsilon();
    constexpr double smallest = 1e-6; // magnitudes that print without an exponent
    constexpr double largest = 1e9;
    constexpr int precision = 6;
    constexpr std::size_t longest = 320; // characters; the largest double has 309 digits
    if (!std::isfinite(value))
    {
        text += "null";
        return;
    }
    const std::size_t start = text.size();
    text.resize(start + longest); // no buffer on the stack: a compiler may give it to each level of a nested document
    char* const first = text.data() + start;
    char* const last = text.data() + text.size();
    const int integer = ToInteger<int>(value);
    const double magnitude = std::fabs(value);
    std::to_chars_result result;
    if (std::fabs(integer - value) <= tolerance)
    {
        result = std::to_chars(first, last, integer);
    }
    else if (std::fabs(std::floor(value) - value) <= tolerance)
    {
        result = std::to_chars(first, last, value, std::chars_format::fixed, 0);
    }
    else
    {
        const bool needsExponent = magnitude < smallest || magnitude > largest;
        result = std::to_chars(first, last, value,
                               needsExponent ? std::chars_format::scientific : std::chars_format::fixed, precision);
    }
    text.resize(static_cast<std::size_t>(result.ptr - text.data()));
}

void PrintContainer(const cJSON& container, std::string& text)
{
    const bool isObject = Kind(container) == cJSON_Object;
    text += isObject ? '{' : '[';
    for (const cJSON* item = container.child; item != nullptr; item = item->next)
    {
        if (item != container.child)
        {
            text += ',';
        }
        if (isObject)
        {
            PrintString(item->string, text);
            text += ':';
        }
        Print(item, text);
    }
    text += isObject ? '}' : ']';
}

/// Gives each number of a tree the value that its printed text would be read with.
void RoundNumbers(cJSON& item)
{
    for (cJSON* child = item.child; child != nullptr; child = child->next)
    {
        RoundNumbers(*child);
    }
    if (Kind(item) == cJSON_Number)
    {
        std::string text;
        PrintNumber(item.valuedouble, text);
        double value = 0;
        const bool isNumber = // else it is the null of a number without a text
            std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc();
        item.type = isNumber ? cJSON_Number : cJSON_NULL;
        cJSON_SetNumberHelper(&item, value);
    }
}
} // namespace

JSONItem Parse(const std::string& text, char opening)
{
    JSONTextScanner scanner(text);
    if (!scanner.Scan(opening))
    {
        return {};
    }
    const std::string_view container = scanner.Result();
    return JSONItem(cJSON_ParseWithLength(container.data(), container.size()));
}

JSONItem Copy(const cJSON& item)
{
    JSONItem copy = Checked(cJSON_Duplicate(&item, 1));
    RoundNumbers(*copy);
    return copy;
}

JSONItem ParsePart(const std::string& text)
{
    const JSONItem around = Parse("[" + text + "]", '[');
    if (around == nullptr || around->child == nullptr)
    {
        throw FormatException(ThrowSite);
    }
    return JSONItem(cJSON_DetachItemFromArray(around.get(), 0));
}

void Print(const cJSON* item, std::string& text)
{
    switch (item == nullptr ? cJSON_Invalid : Kind(*item))
    {
    case cJSON_False:
        text += "false";
        break;
    case cJSON_True:
        text += "true";
        break;
    case cJSON_NULL:
        text += "null";
        break;
    case cJSON_Number:
        PrintNumber(item->valuedouble, text);
        break;
    case cJSON_String:
        PrintString(item->valuestring, text);
        break;
    case cJSON_Array:
    case cJSON_Object:
        PrintContainer(*item, text);
        break;
    default:
        break;
    }
}

JSONItem Create(const Object& value)
{
    if (Tesmo::IsNull(value))
    {
        return Checked(cJSON_CreateNull());
    }
    if (const auto* const number = dynamic_cast<const Int64*>(&value))
    {
        return Checked(cJSON_CreateNumber(static_cast<double>(std::int64_t(*number))));
    }
    if (const auto* const number = dynamic_cast<const UInt64*>(&value))
    {
        return Checked(cJSON_CreateNumber(static_cast<double>(std::uint64_t(*number))));
    }
    if (const auto* const number = dynamic_cast<const Int32*>(&value))
    {
        return Checked(cJSON_CreateNumber(std::int32_t(*number)));
    }
    if (const auto* const number = dynamic_cast<const UInt32*>(&value))
    {
        return Checked(cJSON_CreateNumber(std::uint32_t(*number)));
    }
    if (const auto* const truth = dynamic_cast<const Boolean*>(&value))
    {
        return Checked(bool(*truth) ? cJSON_CreateTrue() : cJSON_CreateFalse());
    }
    if (const auto* const text = dynamic_cast<const String*>(&value))
    {
        return Checked(cJSON_CreateString(text->Utf8().c_str()));
    }
    if (const auto* const enumeration = dynamic_cast<const EnumDeprecated*>(&value))
    {
        return Checked(cJSON_CreateNumber(enumeration->Value()));
    }
    if (const auto* const enumeration = dynamic_cast<const IEnum*>(&value))
    {
        return Checked(cJSON_CreateNumber(enumeration->ToInt32()));
    }
    if (const auto* const number = dynamic_cast<const Double*>(&value))
    {
        return Checked(cJSON_CreateNumber(double(*number)));
    }
    throw FormatException(ThrowSite);
}

JSONItem Checked(cJSON* item)
{
    if (item == nullptr)
    {
        throw OutOfMemoryException(ThrowSite);
    }
    return JSONItem(item);
}
} // namespace Zelkor::Serialization::Json::CJSONAdapter
