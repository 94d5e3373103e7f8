#pragma once

#include <Core/System/Array.h>
#include <Core/System/String.h>
#include <Serialization.Json/JSONAccess.h>
#include <Serialization.Json/JSONDocument.h>

#include <cstdint>
#include <utility>

namespace Zelkor::Serialization::Json
{
/// A JSON object: members in document order, equal names kept. Used by one thread at a time; copies share nothing.
class JSONObject : public JSONDocument<'{'>, public JSONAccess<JSONObject, const Tesmo::System::String&>
{
public:
    /// An empty object.
    JSONObject() = default;

    /// Parses the first value of the text, which must be an object; what follows it is not looked at, and a zero byte
    /// ends the text. More lenient than RFC 8259: any byte from 1 to 32 is white space, strings may hold raw control
    /// characters and any bytes, a backslash before a character without meaning gives that character, and escaped code
    /// units that make no character (0, a lone surrogate, no hexadecimal number) give nothing. Containers nest 1000
    /// deep at most.
    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text does not begin with a valid object
    explicit JSONObject(const Tesmo::System::String& text) : JSONDocument(text) {}

    /// A copy as printing the source and parsing the text would give it: numbers take the value of their printed text.
    /// @throws ArgumentNullException  other is null
    JSONObject(const JSONObject& other) = default;
    JSONObject& operator=(const JSONObject& other) = default;

    ~JSONObject() override = default;

    /// The names in document order.
    Tesmo::System::Array<Tesmo::System::String> GetKeys() const;
    /// The number of members.
    std::uint32_t GetLength() const;

private:
    friend class JSONAccess<JSONObject, const Tesmo::System::String&>;
    friend class JSONAccess<JSONArray, int>;

    explicit JSONObject(const cJSON& item) : JSONDocument(item) {}
    explicit JSONObject(JSONItem item) : JSONDocument(std::move(item)) {}

    const cJSON* Locate(const Tesmo::System::String& key) const;
    void Attach(const Tesmo::System::String& key, JSONItem value);
    void Detach(const cJSON* item);
    [[noreturn]] static void ThrowMissing(Site site);
};
} // namespace Zelkor::Serialization::Json
