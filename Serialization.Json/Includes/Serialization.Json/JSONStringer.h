#pragma once

#include <Core/System/Object.h>
#include <Core/System/String.h>
#include <Serialization.Json/JSONAllocator.h>
#include <Serialization.Json/JSONItem.h>

#include <array>
#include <concepts>
#include <cstdint>
#include <type_traits>

namespace Zelkor::Serialization::Json
{
/// An enumeration of the language, scoped or not.
template <class E>
concept PlainEnum = std::is_enum_v<E>;

/// Builds the compact text of a document from calls in document order. Belongs to one thread. Every call out of place
/// gives FormatException and leaves the scopes as they were; calls can be chained.
class JSONStringer : public JSONAllocator, public Tesmo::System::Object
{
public:
    static constexpr int MaxScopes = 20; ///< the root and 19 levels under it

    JSONStringer() = default;
    ~JSONStringer() override = default;

    /// Open a container: the root, an element of the open array, or the member of the pending key.
    JSONStringer& BeginObject();
    JSONStringer& BeginArray();
    /// Close the innermost container. Closing the root finishes the document; the next one then replaces it.
    JSONStringer& EndObject();
    JSONStringer& EndArray();

    /// The name of the next members, until another one is given: a value does not use it up.
    /// @throws ArgumentNullException  key is null
    /// @throws FormatException        the innermost container is no object
    JSONStringer& Key(const Tesmo::System::String& key);

    /// Add a member or an element. Numbers become doubles, so 64-bit values beyond 2^53 lose their last digits.
    /// Strings are cut at a zero character.
    JSONStringer& Value(std::int32_t value);
    JSONStringer& Value(std::uint32_t value);
    JSONStringer& Value(std::int64_t value);
    JSONStringer& Value(std::uint64_t value);
    JSONStringer& Value(double value);
    template <std::same_as<bool> T> // a pointer would convert
    JSONStringer& Value(T value)
    {
        return AddBoolean(value);
    }
    JSONStringer& Value(const char* value);                  ///< a null pointer gives ""
    JSONStringer& Value(const Tesmo::System::String& value); ///< null gives ""
    template <PlainEnum E>
    JSONStringer& Value(E value)
    {
        return Value(static_cast<std::int32_t>(value));
    }

    /// Adds JSON null for the null reference, else the value of an Int64, UInt64, Int32, UInt32, Boolean, String,
    /// enumeration (as its integer) or Double.
    /// @throws FormatException  value is of another class
    JSONStringer& Value(const Tesmo::System::Object& value);
    JSONStringer& Null();

    /// The finished document, empty if there was none.
    /// @throws FormatException  a container is still open
    Tesmo::System::String ToString() const override;
    Tesmo::System::String TakeText(); ///< the same without a copy: the stringer's own text is empty then

private:
    JSONStringer& Begin(JSONItem container);
    JSONStringer& End(int kind);
    JSONStringer& AddBoolean(bool value);
    JSONStringer& Add(JSONItem value);
    cJSON* Attach(JSONItem value);

    int depth = -1; ///< index of the innermost container, -1 when none is open
    Tesmo::System::String pendingKey;
    Tesmo::System::String text;
    JSONItem root;
    std::array<cJSON*, MaxScopes> scopes = {};
};
} // namespace Zelkor::Serialization::Json
