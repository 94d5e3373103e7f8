#include <Serialization.Json/JSONStringer.h>

#include "CJSONAdapter.h"

#include <Core/System/Checks.h>
#include <Core/System/FormatException.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/ThrowSite.h>

#include <cstddef>
#include <string>
#include <utility>

namespace Zelkor::Serialization::Json
{
using CJSONAdapter::Checked, CJSONAdapter::Kind;
using Tesmo::System::FormatException, Tesmo::System::NotNull, Tesmo::System::OutOfMemoryException,
    Tesmo::System::String;

namespace
{
constexpr std::size_t usualSize = 1024; ///< bytes of a document; longer ones grow
} // namespace

JSONStringer& JSONStringer::BeginObject()
{
    return Begin(Checked(cJSON_CreateObject()));
}

JSONStringer& JSONStringer::BeginArray()
{
    return Begin(Checked(cJSON_CreateArray()));
}

JSONStringer& JSONStringer::EndObject()
{
    return End(cJSON_Object);
}

JSONStringer& JSONStringer::EndArray()
{
    return End(cJSON_Array);
}

JSONStringer& JSONStringer::Key(const String& key)
{
    NotNull(key);
    if (depth < 0 || Kind(*scopes[static_cast<std::size_t>(depth)]) != cJSON_Object)
    {
        throw FormatException(ThrowSite);
    }
    pendingKey = key;
    return *this;
}

JSONStringer& JSONStringer::Value(std::int32_t value)
{
    return Value(static_cast<double>(value));
}

JSONStringer& JSONStringer::Value(std::uint32_t value)
{
    return Value(static_cast<double>(value));
}

JSONStringer& JSONStringer::Value(std::int64_t value)
{
    return Value(static_cast<double>(value));
}

JSONStringer& JSONStringer::Value(std::uint64_t value)
{
    return Value(static_cast<double>(value));
}

JSONStringer& JSONStringer::Value(double value)
{
    return Add(Checked(cJSON_CreateNumber(value)));
}

JSONStringer& JSONStringer::AddBoolean(bool value)
{
    return Add(Checked(cJSON_CreateBool(value)));
}

JSONStringer& JSONStringer::Value(const char* value)
{
    return Add(Checked(cJSON_CreateString(value != nullptr ? value : "")));
}

JSONStringer& JSONStringer::Value(const String& value)
{
    return Value(Tesmo::IsNull(value) ? "" : value.Utf8().c_str());
}

JSONStringer& JSONStringer::Value(const Object& value)
{
    return Add(CJSONAdapter::Create(value));
}

JSONStringer& JSONStringer::Null()
{
    return Add(Checked(cJSON_CreateNull()));
}

String JSONStringer::ToString() const
{
    if (depth >= 0)
    {
        throw FormatException(ThrowSite);
    }
    return text;
}

String JSONStringer::TakeText()
{
    if (depth >= 0)
    {
        throw FormatException(ThrowSite);
    }
    return std::move(text);
}

JSONStringer& JSONStringer::Begin(JSONItem container)
{
    if (depth + 1 >= MaxScopes)
    {
        throw FormatException(ThrowSite);
    }
    if (depth < 0)
    {
        root = std::move(container);
        scopes[0] = root.get();
    }
    else
    {
        scopes[static_cast<std::size_t>(depth) + 1] = Attach(std::move(container));
    }
    ++depth;
    return *this;
}

JSONStringer& JSONStringer::End(int kind)
{
    if (depth < 0 || Kind(*scopes[static_cast<std::size_t>(depth)]) != kind)
    {
        throw FormatException(ThrowSite);
    }
    --depth;
    if (depth < 0)
    {
        std::string document;
        document.reserve(usualSize);
        CJSONAdapter::Print(root.get(), document);
        text = String(std::move(document));
        root.reset();
    }
    return *this;
}

JSONStringer& JSONStringer::Add(JSONItem value)
{
    if (depth < 0)
    {
        throw FormatException(ThrowSite);
    }
    Attach(std::move(value));
    return *this;
}

/// Adds an item to the innermost container, which owns it from then on.
cJSON* JSONStringer::Attach(JSONItem value)
{
    cJSON* const scope = scopes[static_cast<std::size_t>(depth)];
    const bool isObject = Kind(*scope) == cJSON_Object;
    if (isObject && pendingKey.IsEmpty())
    {
        throw FormatException(ThrowSite);
    }
    const bool isAttached = (isObject ? cJSON_AddItemToObject(scope, pendingKey.Utf8().c_str(), value.get())
                                      : cJSON_AddItemToArray(scope, value.get())) != 0;
    if (!isAttached)
    {
        throw OutOfMemoryException(ThrowSite);
    }
    return value.release();
}
} // namespace Zelkor::Serialization::Json
