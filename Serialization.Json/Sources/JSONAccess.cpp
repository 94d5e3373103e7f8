#include <Serialization.Json/JSONAccess.h>

#include "CJSONAdapter.h"

#include <Core/System/Boolean.h>
#include <Core/System/Checks.h>
#include <Core/System/Double.h>
#include <Core/System/EnumDeprecated.h>
#include <Core/System/Int32.h>
#include <Core/System/Int64.h>
#include <Core/System/UInt32.h>
#include <Core/System/UInt64.h>
#include <Serialization.Json/JSONArray.h>
#include <Serialization.Json/JSONObject.h>

#include <string>
#include <type_traits>

namespace Zelkor::Serialization::Json
{
using CJSONAdapter::Checked, CJSONAdapter::Kind, CJSONAdapter::ToInteger;
using Tesmo::System::Boolean, Tesmo::System::Double, Tesmo::System::EnumDeprecated, Tesmo::System::Int32,
    Tesmo::System::Int64, Tesmo::System::NotNull, Tesmo::System::Object, Tesmo::System::String, Tesmo::System::UInt32,
    Tesmo::System::UInt64;

namespace
{
/// Stores the value when out is of class W.
template <class W, class P>
bool StoreAs(Object& out, P value)
{
    auto* const wrapper = dynamic_cast<W*>(&out);
    if (wrapper != nullptr)
    {
        *wrapper = W(value);
    }
    return wrapper != nullptr;
}

bool StoreNumber(Object& out, double number)
{
    const auto integer = ToInteger<std::int32_t>(number);
    if (auto* const enumeration = dynamic_cast<EnumDeprecated*>(&out))
    {
        return enumeration->TryParse(String(std::to_string(integer)), false, *enumeration);
    }
    return StoreAs<Int32>(out, integer) || StoreAs<UInt32>(out, ToInteger<std::uint32_t>(number)) ||
           StoreAs<Int64>(out, std::int64_t{integer}) || StoreAs<UInt64>(out, ToInteger<std::uint64_t>(number)) ||
           StoreAs<Double>(out, number);
}

bool StoreText(Object& out, const char* text)
{
    auto* const string = dynamic_cast<String*>(&out);
    if (string != nullptr)
    {
        *string = text;
    }
    return string != nullptr;
}
} // namespace

template <class Document, class Key>
bool JSONAccess<Document, Key>::TryGetValue(Key key, std::int32_t& value) const
{
    return TryGetNumber(key, value);
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::TryGetValue(Key key, std::uint32_t& value) const
{
    return TryGetNumber(key, value);
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::TryGetValue(Key key, std::int64_t& value) const
{
    return TryGetNumber(key, value);
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::TryGetValue(Key key, std::uint64_t& value) const
{
    return TryGetNumber(key, value);
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::TryGetValue(Key key, double& value) const
{
    return TryGetNumber(key, value);
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::TryGetValue(Key key, bool& value) const
{
    const cJSON* const item = FindKind(key, cJSON_True | cJSON_False);
    if (item != nullptr)
    {
        value = Kind(*item) == cJSON_True;
    }
    return item != nullptr;
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::TryGetValue(Key key, Object& value) const
{
    const cJSON* const item = Find(key);
    switch (item == nullptr ? cJSON_Invalid : Kind(*item))
    {
    case cJSON_Array:
        if (auto* const array = dynamic_cast<JSONArray*>(&value))
        {
            array->Load(item);
            return true;
        }
        return false;
    case cJSON_Object:
        if (auto* const object = dynamic_cast<JSONObject*>(&value))
        {
            object->Load(item);
            return true;
        }
        return false;
    case cJSON_Number:
        return StoreNumber(value, item->valuedouble);
    case cJSON_False:
    case cJSON_True:
        return StoreAs<Boolean>(value, Kind(*item) == cJSON_True);
    case cJSON_String:
        return StoreText(value, item->valuestring);
    default:
        return false;
    }
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::GetBoolean(Key key, Site site) const
{
    return Kind(Required(key, cJSON_True | cJSON_False, site)) == cJSON_True;
}

template <class Document, class Key>
double JSONAccess<Document, Key>::GetDouble(Key key, Site site) const
{
    return Required(key, cJSON_Number, site).valuedouble;
}

template <class Document, class Key>
std::int32_t JSONAccess<Document, Key>::GetInt32(Key key, Site site) const
{
    return ToInteger<std::int32_t>(Required(key, cJSON_Number, site).valuedouble);
}

template <class Document, class Key>
std::uint32_t JSONAccess<Document, Key>::GetUInt32(Key key, Site site) const
{
    return ToInteger<std::uint32_t>(Required(key, cJSON_Number, site).valuedouble);
}

template <class Document, class Key>
std::int64_t JSONAccess<Document, Key>::GetInt64(Key key, Site site) const
{
    return ToInteger<std::int64_t>(Required(key, cJSON_Number, site).valuedouble);
}

template <class Document, class Key>
std::uint64_t JSONAccess<Document, Key>::GetUInt64(Key key, Site site) const
{
    return ToInteger<std::uint64_t>(Required(key, cJSON_Number, site).valuedouble);
}

template <class Document, class Key>
String JSONAccess<Document, Key>::GetString(Key key, Site site) const
{
    return String(Required(key, cJSON_String, site).valuestring);
}

template <class Document, class Key>
JSONObject JSONAccess<Document, Key>::GetJSONObject(Key key, Site site) const
{
    return JSONObject(Required(key, cJSON_Object, site));
}

template <class Document, class Key>
JSONArray JSONAccess<Document, Key>::GetJSONArray(Key key, Site site) const
{
    return JSONArray(Required(key, cJSON_Array, site));
}

template <class Document, class Key>
const JSONObject JSONAccess<Document, Key>::ViewObject(Key key, Site site) const
{
    return JSONObject(Checked(cJSON_CreateObjectReference(Required(key, cJSON_Object, site).child)));
}

template <class Document, class Key>
const JSONArray JSONAccess<Document, Key>::ViewArray(Key key, Site site) const
{
    return JSONArray(Checked(cJSON_CreateArrayReference(Required(key, cJSON_Array, site).child)));
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::OptBoolean(Key key, bool defaultValue) const
{
    TryGetValue(key, defaultValue);
    return defaultValue;
}

template <class Document, class Key>
double JSONAccess<Document, Key>::OptDouble(Key key, double defaultValue) const
{
    TryGetValue(key, defaultValue);
    return defaultValue;
}

template <class Document, class Key>
std::int32_t JSONAccess<Document, Key>::OptInt32(Key key, std::int32_t defaultValue) const
{
    TryGetValue(key, defaultValue);
    return defaultValue;
}

template <class Document, class Key>
std::int64_t JSONAccess<Document, Key>::OptInt64(Key key, std::int64_t defaultValue) const
{
    TryGetValue(key, defaultValue);
    return defaultValue;
}

template <class Document, class Key>
String JSONAccess<Document, Key>::OptString(Key key, const String& defaultValue) const
{
    const cJSON* const item = FindKind(key, cJSON_String);
    NotNull(defaultValue);
    return item != nullptr ? String(item->valuestring) : defaultValue;
}

template <class Document, class Key>
JSONObject JSONAccess<Document, Key>::OptObject(Key key) const
{
    const cJSON* const item = FindKind(key, cJSON_Object);
    return item != nullptr ? JSONObject(*item) : JSONObject();
}

template <class Document, class Key>
JSONObject JSONAccess<Document, Key>::OptObject(Key key, const JSONObject& defaultValue) const
{
    const cJSON* const item = FindKind(key, cJSON_Object);
    NotNull(defaultValue);
    return item != nullptr ? JSONObject(*item) : defaultValue;
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::Take(Key key, std::int32_t& value)
{
    return TakeValue(key, value);
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::Take(Key key, double& value)
{
    return TakeValue(key, value);
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::Take(Key key, bool& value)
{
    return TakeValue(key, value);
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::Take(Key key, Object& value)
{
    return TakeValue(key, value);
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, std::int32_t value)
{
    Put(key, static_cast<double>(value));
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, std::uint32_t value)
{
    Put(key, static_cast<double>(value));
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, std::int64_t value)
{
    Put(key, static_cast<double>(value));
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, std::uint64_t value)
{
    Put(key, static_cast<double>(value));
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, double value)
{
    NotNull(key);
    static_cast<Document*>(this)->Attach(key, Checked(cJSON_CreateNumber(value)));
}

template <class Document, class Key>
void JSONAccess<Document, Key>::PutBoolean(Key key, bool value)
{
    NotNull(key);
    static_cast<Document*>(this)->Attach(key, Checked(cJSON_CreateBool(value)));
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, const char* value)
{
    Put(key, value != nullptr ? static_cast<const Object&>(String(value)) : Tesmo::null);
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, const String& value)
{
    Put(key, static_cast<const Object&>(value));
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, const JSONObject& value)
{
    PutDocument(key, value);
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, const JSONArray& value)
{
    PutDocument(key, value);
}

template <class Document, class Key>
void JSONAccess<Document, Key>::Put(Key key, const Object& value)
{
    NotNull(key);
    static_cast<Document*>(this)->Attach(key, CJSONAdapter::Create(value));
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::Has(Key key) const
{
    return Find(key) != nullptr;
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::IsNull(Key key) const
{
    const cJSON* const item = Find(key);
    return item == nullptr || Kind(*item) == cJSON_NULL;
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::IsObject(Key key) const
{
    return FindKind(key, cJSON_Object) != nullptr;
}

template <class Document, class Key>
bool JSONAccess<Document, Key>::IsArray(Key key) const
{
    return FindKind(key, cJSON_Array) != nullptr;
}

template <class Document, class Key>
const cJSON* JSONAccess<Document, Key>::Find(Key key, Site site) const
{
    NotNull(key, site);
    return static_cast<const Document*>(this)->Locate(key);
}

/// @param kind  one kind, or several put together
template <class Document, class Key>
const cJSON* JSONAccess<Document, Key>::FindKind(Key key, int kind, Site site) const
{
    const cJSON* const item = Find(key, site);
    return item != nullptr && (Kind(*item) & kind) != 0 ? item : nullptr;
}

template <class Document, class Key>
const cJSON& JSONAccess<Document, Key>::Required(Key key, int kind, Site site) const
{
    const cJSON* const item = FindKind(key, kind, site);
    if (item == nullptr)
    {
        Document::ThrowMissing(site);
    }
    return *item;
}

template <class Document, class Key>
template <class T>
bool JSONAccess<Document, Key>::TryGetNumber(Key key, T& value) const
{
    const cJSON* const item = FindKind(key, cJSON_Number);
    if (item == nullptr)
    {
        return false;
    }
    if constexpr (std::is_floating_point_v<T>)
    {
        value = item->valuedouble;
    }
    else
    {
        value = ToInteger<T>(item->valuedouble);
    }
    return true;
}

template <class Document, class Key>
template <class T>
void JSONAccess<Document, Key>::PutDocument(Key key, const T& value)
{
    NotNull(key);
    NotNull(value);
    static_cast<Document*>(this)->Attach(key, CJSONAdapter::ParsePart(value.ToString().Utf8()));
}

template <class Document, class Key>
template <class T>
bool JSONAccess<Document, Key>::TakeValue(Key key, T& value)
{
    const cJSON* const item = Find(key);
    if (!TryGetValue(key, value))
    {
        return false;
    }
    auto& document = static_cast<Document&>(*this);
    if (static_cast<const void*>(&value) != static_cast<const Object*>(&document)) // else the old tree is gone already
    {
        document.Detach(item);
    }
    return true;
}

template class JSONAccess<JSONObject, const String&>;
template class JSONAccess<JSONArray, int>;
} // namespace Zelkor::Serialization::Json
