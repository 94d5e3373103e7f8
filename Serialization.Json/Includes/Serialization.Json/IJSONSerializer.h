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
    /// Parses the text as JSONObject does, with its exceptions, and reads the object.
    virtual Tesmo::Up<T> Deserialize(const Tesmo::System::String& text)
    {
        return Deserialize(JSONObject(text));
    }

    /// A new T from the members of object. What a missing or wrong member throws, each serializer tells.
    virtual Tesmo::Up<T> Deserialize(const JSONObject& object) = 0;

    /// The text of what the other form writes.
    virtual Tesmo::System::String Serialize(const T& value)
    {
        JSONStringer stringer;
        Serialize(value, stringer);
        return stringer.ToString();
    }

    /// Adds value where the stringer stands: as the root, an element, or the member of its pending key.
    virtual void Serialize(const T& value, JSONStringer& stringer) = 0;
};
} // namespace Zelkor::Serialization::Json
