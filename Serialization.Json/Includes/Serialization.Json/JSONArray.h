#pragma once

#include <Core/System/String.h>
#include <Serialization.Json/JSONAccess.h>
#include <Serialization.Json/JSONDocument.h>

namespace Zelkor::Serialization::Json
{
/// A JSON array. Used by one thread at a time; copies share nothing.
class JSONArray : public JSONDocument<'['>, public JSONAccess<JSONArray, int>
{
public:
    /// An empty array.
    /// @throws OutOfMemoryException  it could not be made
    JSONArray();

    /// Parses the first value of the text, which must be an array, by the rules of JSONObject.
    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text does not begin with a valid array
    explicit JSONArray(const Tesmo::System::String& text);

    /// A copy as printing the source and parsing the text would give it: numbers take the value of their printed text.
    /// @throws ArgumentNullException  other is null
    JSONArray(const JSONArray& other);
    JSONArray& operator=(const JSONArray& other);

    ~JSONArray() override = default;

    /// The number of elements.
    int GetLength() const;

private:
    friend class JSONAccess<JSONArray, int>;
    friend class JSONAccess<JSONObject, const Tesmo::System::String&>;

    explicit JSONArray(const cJSON& item);
    explicit JSONArray(JSONItem item);

    void Load(const cJSON* item);
    const cJSON* Locate(int index) const;
    void Attach(int index, JSONItem value);
    void InsertBefore(cJSON* next, cJSON* item);
    void Detach(const cJSON* item);
    [[noreturn]] static void ThrowMissing(Site site);

    /// The element found last: elements are a linked list, and a walk by index shall not begin anew at each step.
    mutable const cJSON* lastFound = nullptr;
    mutable int lastIndex = 0;
};
} // namespace Zelkor::Serialization::Json
