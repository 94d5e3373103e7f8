#pragma once

#include <Core/System/String.h>
#include <Core/System/Up.h>
#include <Core/System/Virtual.h>
#include <Serialization.Json/JSONObject.h>
#include <Serialization.Json/JSONStringer.h>

namespace Zelkor::Serialization::Json
{
/// Turns JSON into objects of one class and back.
template <class T>
class IJSONSerializer : public Tesmo::System::Virtual
{
public:
    /// Parses the text and hands the object on.
    virtual Tesmo::Up<T> Deserialize(const Tesmo::System::String& text)
    {
        return Deserialize(JSONObject(text));
    }

    virtual Tesmo::Up<T> Deserialize(const JSONObject& object) = 0;

    /// The text of what the other form writes.
    virtual Tesmo::System::String Serialize(const T& value)
    {
        JSONStringer stringer;
        Serialize(value, stringer);
        return stringer.ToString();
    }

    virtual void Serialize(const T& value, JSONStringer& stringer) = 0;
};
} // namespace Zelkor::Serialization::Json
