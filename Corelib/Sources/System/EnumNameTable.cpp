#include <Core/System/EnumNameTable.h>

#include <Core/System/Array.h>
#include <Core/System/Int32.h>

namespace Tesmo::System
{
namespace
{
bool FindName(const EnumNameTable::Names& names, const String& text, bool ignoreCase, int& value)
{
    for (const auto& [key, name] : names)
    {
        if (String::Compare(name, text, ignoreCase) == 0)
        {
            value = key;
            return true;
        }
    }
    return false;
}
} // namespace

EnumNameTable::Names EnumNameTable::Build(std::span<const EnumName> names)
{
    Names table;
    for (const EnumName& entry : names)
    {
        table.Add(entry.value, entry.name);
    }
    return table;
}

String EnumNameTable::TextOf(const Names& names, int value)
{
    String name;
    return names.TryGetValue(value, name) ? name : Int32(value).ToString();
}

String EnumNameTable::FlagsTextOf(const Names& names, int value)
{
    String text;
    if (value == 0)
    {
        return TextOf(names, 0);
    }
    int remaining = value;
    for (const auto& [key, name] : names)
    {
        if (key != 0 && (key & remaining) == key)
        {
            remaining -= key;
            text = text.IsEmpty() ? name : name + ", " + text;
        }
    }
    // "> 0", not "!= 0": a sign bit without a name does not count, as required.
    return text.IsEmpty() || remaining > 0 ? Int32(value).ToString() : text;
}

bool EnumNameTable::IsDefined(const Names& names, int value)
{
    return names.ContainsKey(value);
}

bool EnumNameTable::AreFlagsDefined(const Names& names, int value)
{
    if (value == 0)
    {
        return names.ContainsKey(0);
    }
    int remaining = value;
    for (const auto& entry : names)
    {
        remaining -= (entry.first & remaining) == entry.first ? entry.first : 0;
    }
    return remaining == 0;
}

bool EnumNameTable::TryParse(const Names& names, const String& text, bool ignoreCase, int& value)
{
    return !IsNull(text) && (FindName(names, text, ignoreCase, value) || Int32::TryParse(text, value));
}

bool EnumNameTable::TryParseFlags(const Names& names, const String& text, bool ignoreCase, int& value)
{
    value = 0;
    if (IsNull(text))
    {
        return false;
    }
    const Sp<Array<String>> parts = text.Split(',');
    if (parts->Length() == 1 && Int32::TryParse((*parts)[0], value))
    {
        return true;
    }
    bool complete = parts->Length() > 0;
    for (const String& part : *parts)
    {
        int bits = 0;
        complete = FindName(names, part.Trim(' '), ignoreCase, bits) && complete;
        value |= bits;
    }
    return complete;
}
} // namespace Tesmo::System
