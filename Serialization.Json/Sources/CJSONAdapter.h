#pragma once

#include <Core/System/Object.h>
#include <Serialization.Json/JSONItem.h>

#include <cjson/cJSON.h>

#include <cmath>
#include <limits>
#include <string>

/// The one place that knows in what cJSON differs from the accepted text and the printed text of this library.
namespace Zelkor::Serialization::Json::CJSONAdapter
{
/// Parses the container that the text begins with.
/// @param opening  '{' or '[', the first character after white space
/// @returns an empty item for text that is refused
JSONItem Parse(const std::string& text, char opening);

/// A copy of a tree, as printing it and parsing the text would give it: a number takes the value of its printed text.
/// @throws OutOfMemoryException  an item could not be made
JSONItem Copy(const cJSON& item);

/// A document's copy that is to become a part of another document.
/// @param text  the document's compact text
/// @throws FormatException  in one more container the text would be nested too deep to be read again
JSONItem ParsePart(const std::string& text);

/// Appends the compact text of a tree; nothing for a null pointer.
void Print(const cJSON* item, std::string& text);

/// The item of an object of the class library, null for the null reference.
/// @throws FormatException       the class has no JSON form
/// @throws OutOfMemoryException  the item could not be made
JSONItem Create(const Tesmo::System::Object& value);

/// @throws OutOfMemoryException  the item could not be made
JSONItem Checked(cJSON* item);

/// The kind of an item, without its flags: one of cJSON_False ... cJSON_Object.
inline int Kind(const cJSON& item)
{
    return item.type & 0xFF;
}

/// A double as an integer: the fraction is cut off, what lies outside the range becomes its bound, NaN becomes 0.
template <class T>
T ToInteger(double value)
{
    constexpr double lowest = static_cast<double>(std::numeric_limits<T>::min());
    const double beyond = std::ldexp(1.0, std::numeric_limits<T>::digits);
    if (!(value > lowest))
    {
        return value <= lowest ? std::numeric_limits<T>::min() : T{0};
    }
    return value < beyond ? static_cast<T>(value) : std::numeric_limits<T>::max();
}
} // namespace Zelkor::Serialization::Json::CJSONAdapter
